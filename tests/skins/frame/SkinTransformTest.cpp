#include "skins/frame/SkinTransform.h"

#include "skins/SkinFakes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace netrove {
namespace {

class SkinTransformTest : public testing::Test {
protected:
    QColor Colorized(float hue, float saturation, const QColor& color) {
        configuration_.Colorize = true;
        configuration_.Hue = hue;
        configuration_.Saturation = saturation;
        return SkinTransform(configuration_).Apply(color);
    }

    QColor Adjusted(float red, float green, float blue, const QColor& color) {
        configuration_.AdjustRGB = true;
        configuration_.PercentRed = red;
        configuration_.PercentGreen = green;
        configuration_.PercentBlue = blue;
        return SkinTransform(configuration_).Apply(color);
    }

    LoggedPainter painter_;
    SkinConfiguration configuration_{painter_};
};

TEST_F(SkinTransformTest, TurnsEveryColourToTheHueAtItsOwnLightness) {
    // Half way to white and to black, so that every channel of a pure hue can show.
    const QColor middle(255, 0, 0);
    const struct {
        float hue;
        QColor expected;
    } steps[] = {{-1, {255, 0, 255}}, {0, {255, 0, 0}},   {0.5F, {255, 128, 0}},
                 {1, {255, 255, 0}},  {2, {0, 255, 0}},   {3, {0, 255, 255}},
                 {4, {0, 0, 255}},    {5, {255, 0, 255}}, {-0.5F, {255, 0, 128}}};
    for (const auto& step : steps)
        EXPECT_EQ(Colorized(step.hue, 1, middle), step.expected) << step.hue;
    EXPECT_EQ(Colorized(2, 1, QColor(128, 0, 0)), QColor(0, 128, 0));
    EXPECT_EQ(Colorized(4, 0.5F, QColor(255, 0, 0)), QColor(64, 64, 191));
    for (const QColor end : {QColor(Qt::black), QColor(Qt::white)})
        EXPECT_EQ(Colorized(4, 1, end), end);
    // Without saturation, the grey of the lightness.
    EXPECT_EQ(Colorized(4, 0, QColor(200, 40, 10)), QColor(105, 105, 105));
}

TEST_F(SkinTransformTest, BringsEachChannelTowardsItsEnds) {
    const QColor color(10, 100, 200);
    EXPECT_EQ(Adjusted(0, 0, 0, color), color);
    EXPECT_EQ(Adjusted(-1, 0, 1, color), QColor(0, 100, 255));
    EXPECT_EQ(Adjusted(0.5F, -0.5F, 0, color), QColor(133, 50, 200));
    // It comes after the colour's own hue has gone.
    EXPECT_EQ((Colorized(0, 0, color), Adjusted(-1, 0, 0, color)), QColor(0, 105, 105));
}

TEST_F(SkinTransformTest, DoesNothingWhileSwitchedOffAndClampsWhatIsOutOfRange) {
    configuration_.Hue = 3;
    configuration_.Saturation = 1;
    configuration_.PercentRed = 1;
    EXPECT_EQ(SkinTransform(configuration_), SkinTransform());
    const QColor color(255, 0, 0);
    EXPECT_EQ(SkinTransform().Apply(color), color);

    const float nothing = std::numeric_limits<float>::quiet_NaN();
    const float infinite = std::numeric_limits<float>::infinity();
    EXPECT_EQ(Colorized(99, 7, color), QColor(255, 0, 255));
    EXPECT_EQ(Colorized(-infinite, infinite, color), QColor(255, 0, 255));
    EXPECT_EQ(Colorized(nothing, 1, color), color);
    EXPECT_EQ(Colorized(2, nothing, color), QColor(128, 128, 128));
    EXPECT_EQ(Adjusted(-3, infinite, nothing, color), QColor(0, 255, 128));
}

TEST_F(SkinTransformTest, TreatsPicturesLikeColoursAndKeepsTheirAlpha) {
    QImage picture(16, 16, QImage::Format_ARGB32);
    picture.setDevicePixelRatio(2);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            picture.setPixelColor(x, y, QColor(x * 17, y * 17, x * y, 255 - x * y));
    }
    const auto expectAlike = [&] {
        const SkinTransform transform(configuration_);
        const QImage result = transform.Apply(picture);
        EXPECT_EQ(result.devicePixelRatio(), 2);
        int differences = 0;
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x)
                differences += result.pixelColor(x, y) != transform.Apply(picture.pixelColor(x, y));
        }
        EXPECT_EQ(differences, 0);
    };
    expectAlike();
    Adjusted(0.3F, -0.7F, 1, Qt::red);
    expectAlike();
    Colorized(3.3F, 0.6F, Qt::red);
    expectAlike();
}

} // namespace
} // namespace netrove
