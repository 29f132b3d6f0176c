#include "skins/frame/FrameLook.h"

#include "controls/Color.h"
#include "skins/SkinConfiguration.h"

namespace netrove {
namespace {

constexpr double OuterLineDarkness = 0.5;
constexpr double InnerLineBrightness = 0.3;

} // namespace

FrameColors::FrameColors(const SkinConfiguration& configuration) {
    const SkinTransform transform(configuration);
    const auto resolved = [&transform](quint32 color) { return transform.Apply(ToColor(color)); };
    activeCaption = resolved(configuration.TitleColor1);
    inactiveCaption = resolved(configuration.TitleColor2);
    back = resolved(configuration.BarColor4);
    text = resolved(configuration.BarColor1);
    highlightBack = resolved(configuration.BarColor3);
    highlightText = resolved(configuration.BarColor2);
    outerLine = Mixed(inactiveCaption, Qt::black, OuterLineDarkness);
    innerLine = Mixed(back, Qt::white, InnerLineBrightness);
}

FrameLook::FrameLook(const SkinConfiguration& configuration, const FrameLook* before)
    : metrics(configuration)
    , colors(configuration)
    , titleFont(configuration.TitleFont)
    , barFont(configuration.BarFont) {
    if (before && before->pictures->AreOf(configuration, metrics))
        pictures = before->pictures;
    else
        pictures = std::make_shared<FramePictures>(configuration, metrics);
}

} // namespace netrove
