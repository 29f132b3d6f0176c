#include "skins/SkinTable.h"

#include "controls/Color.h"
#include "fakes/Pixels.h"
#include "skins/SkinFakes.h"

#include <gtest/gtest.h>

#include <sstream>

namespace netrove {
namespace {

class SkinTableTest : public testing::TestWithParam<int> {
protected:
    SkinTableTest() { ApplyBuiltIn(GetParam(), pictures_, skin_); }

    LoggedPainter frame_;
    SkinPictures pictures_;
    SkinConfiguration skin_{frame_};
};

TEST_P(SkinTableTest, HasTheMeasuresOfItsPictures) {
    const char* const measures[] = {
        "13 14 90 142 240 372 0 0 0 0 0 0 0 0 0 0 0 0",
        "19 20 90 140 240 400 0 0 0 0 0 0 0 0 0 0 0 0",
        "11 14 39 96 180 250 -1 8 8 2 2 3 -1 -1 -10 3 17 30",
        "14 13 68 81 143 210 -1 8 8 2 2 2 -1 -1 -6 6 10 0",
        "9 8 25 30 65 101 -1 8 8 2 2 3 -1 -1 -14 7 18 0",
    };
    using Skin = SkinConfiguration;
    std::ostringstream own;
    for (const auto number :
         {&Skin::TitleMetric1, &Skin::TitleMetric2, &Skin::TitleMetric3, &Skin::TitleMetric4,
          &Skin::TitleMetric5, &Skin::TitleMetric6, &Skin::FrameFlag1, &Skin::FrameInset1,
          &Skin::FrameInset2, &Skin::FrameInset3, &Skin::FrameInset4, &Skin::FrameMetric1,
          &Skin::FrameFlag2, &Skin::FrameFlag3, &Skin::FrameMetric2, &Skin::FrameMetric3,
          &Skin::FrameMetric4, &Skin::FrameMetric5})
        own << skin_.*number << ' ';
    EXPECT_EQ(own.str(), std::string(measures[GetParam() - 1]) + ' ');
}

TEST_P(SkinTableTest, CutsTheTitlePictureIntoItsParts) {
    const QImage title = skin_.TitlePicture.toImage();
    const int ratio = int(title.devicePixelRatio());
    EXPECT_GT(title.width() / ratio, skin_.TitleMetric6);
    EXPECT_EQ(title.height() % (2 * ratio), 0);

    // What is repeated behind the caption looks the same at its every column, and after its cap.
    for (int y = 0; y < title.height(); ++y) {
        const QRgb first = title.pixel((skin_.TitleMetric3 - 1) * ratio, y);
        for (int x = skin_.TitleMetric3 * ratio; x < skin_.TitleMetric4 * ratio; ++x)
            ASSERT_EQ(title.pixel(x, y), first) << x << ' ' << y;
    }
}

TEST_P(SkinTableTest, LetsTheCaptionBeReadBehindTheIconAndOnTheTile) {
    const QImage title = skin_.TitlePicture.toImage();
    const int ratio = int(title.devicePixelRatio());
    const int row = title.height() / 2;
    for (const bool active : {true, false}) {
        const QColor text = ToColor(active ? skin_.TitleColor1 : skin_.TitleColor2);
        double least = 21;
        for (int y = row * 3 / 20; y < row * 17 / 20; ++y) {
            for (int x = (skin_.TitleMetric1 + 16) * ratio; x < skin_.TitleMetric4 * ratio; ++x)
                least = std::min(least, Contrast(text, title.pixelColor(x, active ? y : row + y)));
        }
        EXPECT_GE(least, active ? 4.5 : 3.0) << (active ? "active" : "inactive");
    }
}

TEST_P(SkinTableTest, HasSevenCellsWithFacesThatDifferAndGlyphsThatShow) {
    const QImage strip = skin_.FramePicture.toImage();
    const int rows = skin_.FrameFlag1 ? 2 : 1;
    ASSERT_EQ(strip.width() % 7, 0);
    ASSERT_EQ(strip.height() % rows, 0);
    const QSize cell(strip.width() / 7, strip.height() / rows);
    EXPECT_EQ(cell.width(), cell.height());
    for (int row = 0; row < rows; ++row) {
        const auto part = [&](int place) {
            return strip.copy(QRect(QPoint(place * cell.width(), row * cell.height()), cell));
        };
        // The glyph's ink: where it is opaque, it stands out from the face below it.
        const auto standsOut = [&](const QImage& sign, const QImage& face) {
            double best = 1;
            for (int at = 0; at < cell.width() * cell.height(); ++at) {
                const QPoint place(at % cell.width(), at / cell.width());
                if (qAlpha(sign.pixel(place)) == 255)
                    best = std::max(best, Contrast(sign.pixelColor(place), face.pixelColor(place)));
            }
            return qAlpha(sign.pixel(0, 0)) == 0 && best >= 3;
        };
        const auto middle = [&](int face) {
            return part(face).pixelColor(cell.width() / 2, cell.height() * 3 / 4);
        };
        for (const int face : {0, 1, 2}) {
            for (const int glyph : {3, 4, 5, 6})
                EXPECT_TRUE(standsOut(part(glyph), part(face))) << face << glyph << ' ' << row;
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
