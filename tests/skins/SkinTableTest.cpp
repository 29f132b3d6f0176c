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

TEST_P(SkinTableTest, HasSevenCellsWithFacesThatDifferAndGlyphsThatShow) {
    EXPECT_GT(skin_.TitlePicture.deviceIndependentSize().width(), skin_.TitleMetric6);
    const QImage strip = skin_.FramePicture.toImage();
    const int rows = skin_.FrameFlag1 ? 2 : 1;
    const QSize cell(strip.width() / 7, strip.height() / rows);
    ASSERT_EQ(cell.width(), cell.height());
    for (int row = 0; row < rows; ++row) {
        const auto cellAt = [&](int place) {
            return strip.copy(QRect(QPoint(place * cell.width(), row * cell.height()), cell));
        };
        for (const int face : {0, 1, 2}) {
            const QImage below = cellAt(face);
            EXPECT_NE(below, cellAt((face + 1) % 3));
            for (const int glyph : {3, 4, 5, 6}) {
                const QImage sign = cellAt(glyph);
                double highest = 1; // of what is opaque
                for (int x = 0; x < cell.width(); ++x) {
                    for (int y = 0; y < cell.height(); ++y) {
                        if (sign.pixelColor(x, y).alpha() == 255)
                            highest = std::max(
                                highest, Contrast(sign.pixelColor(x, y), below.pixelColor(x, y)));
                    }
                }
                EXPECT_GE(highest, 3) << face << glyph << ' ' << row;
            }
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
