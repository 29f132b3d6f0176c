#include "skins/frame/PaintedSkinFrame.h"

#include "skins/frame/FrameSample.h"
#include "skins/skinfile/SkinFile.h"

#include <variant>

namespace netrove {
namespace {

using Member = std::variant<qint32 SkinConfiguration::*, quint32 SkinConfiguration::*,
                            bool SkinConfiguration::*, float SkinConfiguration::*>;

struct NamedMember {
    const char* name;
    Member member;
};

constexpr NamedMember Members[] = {
    {"TitleMetric1", &SkinConfiguration::TitleMetric1},
    {"TitleMetric2", &SkinConfiguration::TitleMetric2},
    {"TitleMetric3", &SkinConfiguration::TitleMetric3},
    {"TitleMetric4", &SkinConfiguration::TitleMetric4},
    {"TitleMetric5", &SkinConfiguration::TitleMetric5},
    {"TitleMetric6", &SkinConfiguration::TitleMetric6},
    {"TitleColor1", &SkinConfiguration::TitleColor1},
    {"TitleColor2", &SkinConfiguration::TitleColor2},
    {"BarColor1", &SkinConfiguration::BarColor1},
    {"BarColor2", &SkinConfiguration::BarColor2},
    {"BarColor3", &SkinConfiguration::BarColor3},
    {"BarColor4", &SkinConfiguration::BarColor4},
    {"FrameFlag1", &SkinConfiguration::FrameFlag1},
    {"FrameInset1", &SkinConfiguration::FrameInset1},
    {"FrameInset2", &SkinConfiguration::FrameInset2},
    {"FrameInset3", &SkinConfiguration::FrameInset3},
    {"FrameInset4", &SkinConfiguration::FrameInset4},
    {"FrameMetric1", &SkinConfiguration::FrameMetric1},
    {"FrameFlag2", &SkinConfiguration::FrameFlag2},
    {"FrameFlag3", &SkinConfiguration::FrameFlag3},
    {"FrameMetric2", &SkinConfiguration::FrameMetric2},
    {"FrameMetric3", &SkinConfiguration::FrameMetric3},
    {"FrameMetric4", &SkinConfiguration::FrameMetric4},
    {"FrameMetric5", &SkinConfiguration::FrameMetric5},
    {"Colorize", &SkinConfiguration::Colorize},
    {"Hue", &SkinConfiguration::Hue},
    {"Saturation", &SkinConfiguration::Saturation},
    {"AdjustRGB", &SkinConfiguration::AdjustRGB},
    {"PercentRed", &SkinConfiguration::PercentRed},
    {"PercentBlue", &SkinConfiguration::PercentBlue},
    {"PercentGreen", &SkinConfiguration::PercentGreen},
};

std::optional<qint32> Value(const SkinFile& file, const QString& name, const qint32& /*kind*/) {
    return file.Number(name);
}
std::optional<quint32> Value(const SkinFile& file, const QString& name, const quint32& /*kind*/) {
    return file.Color(name);
}
std::optional<bool> Value(const SkinFile& file, const QString& name, const bool& /*kind*/) {
    return file.Boolean(name);
}
std::optional<float> Value(const SkinFile& file, const QString& name, const float& /*kind*/) {
    return file.Fraction(name);
}

} // namespace

void PaintedSkinFrame::PaintSample(const SkinConfiguration& configuration, const QWidget& window,
                                   QPainter& painter, const QRect& area, bool active) {
    look_ = FrameLook(configuration, look_ ? &*look_ : nullptr);
    FrameSample(*look_, window, active).Paint(painter, area);
}

void PaintedSkinFrame::Parse(const QString& text, const QPixmap& firstPicture,
                             const QPixmap& secondPicture, SkinConfiguration& configuration) {
    const SkinFile file(text);
    SkinConfiguration taken = configuration;
    for (const NamedMember& member : Members) {
        const auto take = [&](auto pointer) {
            auto& target = taken.*pointer;
            target = Value(file, QString::fromLatin1(member.name), target).value_or(target);
        };
        std::visit(take, member.member);
    }
    if (!file.Name().isEmpty())
        taken.Name = file.Name();
    taken.TitlePicture = firstPicture;
    taken.FramePicture = secondPicture;
    configuration = taken;
}

} // namespace netrove
