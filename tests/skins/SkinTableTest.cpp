#include "skins/SkinTable.h"

#include "controls/Color.h"
#include "fakes/Pixels.h"
#include "skins/frame/PaintedSkinFrame.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

class SkinTableTest : public testing::TestWithParam<int> {
protected:
    SkinTableTest() { ApplyBuiltIn(GetParam(), SkinPictures(), skin_); }

    PaintedSkinFrame frame_;
    SkinConfiguration skin_{frame_};
};

TEST_P(SkinTableTest, CutsATitleThatLetsTheCaptionBeRead) {
    const QImage title = skin_.TitlePicture.toImage();
    const int ratio = int(title.devicePixelRatio());
    EXPECT_GT(title.width() / ratio, skin_.TitleMetric6);
    const int row = title.height() / 2;
    for (const bool active : {true, false}) {
        const QColor text = ToColor(active ? skin_.TitleColor1 : skin_.TitleColor2);
        double least = 21;
        for (int y = row * 3 / 20; y < row * 17 / 20; ++y) {
            const int at = active ? y : row + y;
            for (int x = (skin_.TitleMetric1 + 16) * ratio; x < skin_.TitleMetric4 * ratio; ++x) {
                least = std::min(least, Contrast(text, title.pixelColor(x, at)));
                // What is repeated behind the caption looks the same at its every column.
                if (x >= skin_.TitleMetric3 * ratio) {
                    ASSERT_EQ(title.pixel(x, at), title.pixel(skin_.TitleMetric3 * ratio - 1, at));
                }
            }
        }
        EXPECT_GE(least, active ? 4.5 : 3.0) << (active ? "active" : "inactive");
    }
}

TEST_P(SkinTableTest, HasSevenCellsWithFacesThatDifferAndGlyphsThatShow) {
    const QImage strip = skin_.FramePicture.toImage();
    const int rows = skin_.FrameFlag1 ? 2 : 1;
    const QSize cell(strip.width() / 7, strip.height() / rows);
    ASSERT_EQ(cell.width(), cell.height());
    for (int row = 0; row < rows; ++row) {
        const auto color = [&](int place, int x, int y) {
            return strip.pixelColor(place * cell.width() + x, row * cell.height() + y);
        };
        // The glyph's ink: where it is opaque, it stands out from the face below it.
        const auto highest = [&](int glyph, int face) {
            double best = 1;
            for (int at = 0; at < cell.width() * cell.height(); ++at) {
                const QColor ink = color(glyph, at % cell.width(), at / cell.width());
                if (ink.alpha() == 255)
                    best = std::max(
                        best, Contrast(ink, color(face, at % cell.width(), at / cell.width())));
            }
            return best;
        };
        const auto middle = [&](int face) {
            return color(face, cell.width() / 2, cell.height() * 3 / 4);
        };
        for (const int face : {0, 1, 2}) {
            for (const int glyph : {3, 4, 5, 6})
                EXPECT_GE(highest(glyph, face), 3) << face << glyph << ' ' << row;
            EXPECT_GT(Contrast(middle(face), middle((face + 1) % 3)), face == 0 ? 1.1 : 1.3) << row;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(BuiltIn, SkinTableTest, testing::Range(1, 6));

TEST(SkinPicturesTest, AreThereInEveryDensityAndWithoutTheTransparentColour) {
    const SkinPictures pictures;
    for (int entry = 0; entry < 10; ++entry) {
        SCOPED_TRACE(entry);
        const QPixmap plain = pictures.Picture(entry, 1);
        EXPECT_FALSE(ColorsOf(plain.toImage(), plain.rect()).contains(qRgb(255, 0, 255)));
        const QPixmap dense = pictures.Picture(entry, 1.25);
        EXPECT_EQ(dense.devicePixelRatio(), 2);
        EXPECT_EQ(dense.deviceIndependentSize(), QSizeF(plain.size()));
        EXPECT_EQ(pictures.Picture(entry, 50).devicePixelRatio(), 4);
    }
    EXPECT_TRUE(pictures.Picture(10, 1).isNull());
}

} // namespace
} // namespace netrove
