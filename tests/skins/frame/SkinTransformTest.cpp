#include "skins/frame/SkinTransform.h"

#include "skins/frame/PaintedSkinFrame.h"

#include <gtest/gtest.h>

#include <limits>

namespace netrove {
namespace {

class SkinTransformTest : public testing::Test {
protected:
    QColor Colorized(float hue, float saturation, const QColor& color) {
        skin_.Colorize = true;
        skin_.Hue = hue;
        skin_.Saturation = saturation;
        return SkinTransform(skin_).Apply(color);
    }

    QColor Adjusted(float red, float green, float blue, const QColor& color) {
        skin_.AdjustRGB = true;
        skin_.PercentRed = red;
        skin_.PercentGreen = green;
        skin_.PercentBlue = blue;
        return SkinTransform(skin_).Apply(color);
    }

    PaintedSkinFrame painter_;
    SkinConfiguration skin_{painter_};
};

TEST_F(SkinTransformTest, TurnsEveryColourToTheHueAtItsOwnLightness) {
    const float nothing = std::numeric_limits<float>::quiet_NaN();
    const float infinite = std::numeric_limits<float>::infinity();
    const QColor red(255, 0, 0);
    const struct {
        float hue, saturation;
        QColor color, expected;
    } cases[] = {{-1, 1, red, {255, 0, 255}},
                 {0, 1, red, red},
                 {0.5F, 1, red, {255, 128, 0}},
                 {4, 1, red, {0, 0, 255}},
                 {2, 1, {128, 0, 0}, {0, 128, 0}},
                 {4, 0.5F, red, {64, 64, 191}},
                 {4, 1, Qt::black, Qt::black},
                 {4, 1, Qt::white, Qt::white},
                 {4, 0, {200, 40, 10}, {105, 105, 105}}, // the grey of the lightness
                 // Out of range.
                 {99, 7, red, {255, 0, 255}},
                 {-infinite, infinite, red, {255, 0, 255}},
                 {nothing, 1, red, red},
                 {2, nothing, red, {128, 128, 128}}};
    for (const auto& [hue, saturation, color, expected] : cases)
        EXPECT_EQ(Colorized(hue, saturation, color), expected) << hue << ' ' << saturation;
    EXPECT_EQ(Adjusted(-1, 0, 0, Colorized(0, 0, red)), QColor(0, 128, 128)) << "that comes after";
}

TEST_F(SkinTransformTest, BringsEachChannelTowardsItsEnds) {
    const QColor color(10, 100, 200);
    EXPECT_EQ(Adjusted(0, 0, 0, color), color);
    EXPECT_EQ(Adjusted(-1, 0, 1, color), QColor(0, 100, 255));
    EXPECT_EQ(Adjusted(0.5F, -0.5F, 0, color), QColor(133, 50, 200));
    EXPECT_EQ(Adjusted(-3, std::numeric_limits<float>::infinity(),
                       std::numeric_limits<float>::quiet_NaN(), color),
              QColor(0, 255, 200));
    skin_.AdjustRGB = false;
    EXPECT_EQ(SkinTransform(skin_), SkinTransform()) << "while it's switched off";
    EXPECT_EQ(SkinTransform().Apply(color), color);
}

} // namespace
} // namespace netrove
