#include "skins/frame/FramePainter.h"
#include "skins/frame/PlainSkin.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

class FramePaintTest : public testing::Test {
protected:
    QImage Title(int width, bool active, int buttonsLeft, const QString& caption = {}) {
        const FrameLook look(skin_.configuration);
        QImage image(width, look.metrics.titleHeight, QImage::Format_RGB32);
        QPainter painter(&image);
        FramePainter(look, painter, active).PaintTitle(image.rect(), QIcon(), caption, buttonsLeft);
        return image;
    }

    /// Where each of the pieces begins in the upper row of pixels; -1 for one that isn't there.
    static std::vector<int> Starts(const QImage& title, bool active) {
        std::vector<int> starts;
        for (const QColor color : PlainSkin::Pieces) {
            int x = 0;
            while (x < title.width() &&
                   title.pixel(x, 0) != (active ? color : color.darker()).rgb())
                ++x;
            starts.push_back(x < title.width() ? x : -1);
        }
        return starts;
    }

    PlainSkin skin_;
};

// Without a caption the tile ends 12 pixels from the left, in the left cap; so there is none.
TEST_F(FramePaintTest, CutsTheTitleIntoItsPiecesAndDropsWhatHasNoRoom) {
    using Expected = std::vector<int>;
    for (const bool active : {true, false})
        EXPECT_EQ(Starts(Title(200, active, 150), active), Expected({0, -1, 20, 40, 180}));
    // The right cap loses its left side, then the divider goes, then the left cap's right side.
    EXPECT_EQ(Starts(Title(50, true, 40), true), Expected({0, -1, 20, -1, 40}));
    EXPECT_EQ(Starts(Title(50, true, 30), true), Expected({0, -1, -1, 20, 30}));
    EXPECT_EQ(Starts(Title(10, true, 5), true), Expected({0, -1, -1, -1, -1}));

    // A long caption has the tile behind all of it, and ends before the buttons.
    EXPECT_EQ(Starts(Title(200, true, 150, QString(100, u'x')), true),
              Expected({0, 20, -1, 150, 180}));
    // All pieces are as high as the bar.
    skin_.configuration.FrameMetric5 = 90;
    const QImage higher = Title(200, true, 150);
    EXPECT_EQ(higher.height(), 90);
    EXPECT_EQ(higher.pixelColor(199, 89), QColor(Qt::yellow));
}

TEST_F(FramePaintTest, FillsInWhatASkinLeavesOut) {
    PaintedSkinFrame painter;
    SkinConfiguration empty(painter);
    EXPECT_GE(FrameMetrics(empty).titleHeight, QFontMetrics(empty.TitleFont).height() + 6);

    // Out of all bounds.
    empty.TitlePicture = QPixmap(30, 10);
    empty.TitleMetric3 = 4000;
    empty.TitleMetric4 = -4000;
    empty.FrameMetric1 = 4000;
    empty.FrameMetric3 = 4000;
    empty.FrameMetric5 = 4000;
    empty.FrameFlag2 = -1;
    const FrameMetrics bounded(empty);
    EXPECT_EQ(bounded.leftCap, 30);
    EXPECT_EQ(bounded.tile + bounded.divider + bounded.filler + bounded.rightCap, 0);
    EXPECT_LE(bounded.titleHeight, 200);
    EXPECT_LE(bounded.border, 40);
    EXPECT_LE(bounded.upperRadius, bounded.titleHeight / 2);
}

TEST_F(FramePaintTest, CutsTheCornersThatTheSkinRounds) {
    skin_.configuration.FrameMetric3 = 6;
    skin_.configuration.FrameFlag2 = -1;
    const QRect window(0, 0, 100, 80);
    const QRegion inside = FramePainter::Inside(FrameMetrics(skin_.configuration), window);
    EXPECT_FALSE(inside.contains(QPoint(0, 0)));
    EXPECT_FALSE(inside.contains(QPoint(99, 0)));
    EXPECT_FALSE(inside.contains(QPoint(1, 1)));
    for (const QPoint point : {QPoint(2, 2), QPoint(6, 0), QPoint(0, 6), QPoint(0, 79)})
        EXPECT_TRUE(inside.contains(point)) << point.x();
}

TEST_F(FramePaintTest, MakesTheTransparentColourOfAPictureTransparent) {
    QImage cells(7, 2, QImage::Format_RGB32);
    cells.fill(QColor(255, 0, 255));
    cells.setPixelColor(1, 0, Qt::white);
    skin_.configuration.FramePicture = QPixmap::fromImage(cells);
    skin_.configuration.Colorize = true;
    const FramePictures pictures(skin_.configuration, FrameMetrics(skin_.configuration));
    const auto pixel = [&](FrameCell cell) {
        return pictures.Cell(cell, true).toImage().pixelColor(0, 0);
    };
    EXPECT_EQ(pixel(FrameCell::Face).alpha(), 0);
    EXPECT_EQ(pixel(FrameCell::FaceUnderMouse), QColor(Qt::white));
}

TEST_F(FramePaintTest, TakesPicturesOfAnyResolution) {
    QImage sharp = skin_.configuration.TitlePicture.toImage().scaled(
        skin_.configuration.TitlePicture.size() * 2);
    sharp.setDevicePixelRatio(2);
    skin_.configuration.TitlePicture = QPixmap::fromImage(sharp);
    EXPECT_EQ(FrameMetrics(skin_.configuration).titleHeight, PlainSkin::RowHeight);
    EXPECT_EQ(Starts(Title(200, true, 150), true), (std::vector<int>{0, -1, 20, 40, 180}));
}

TEST_F(FramePaintTest, PaintsASampleIntoItsRectangleOnly) {
    const PlainWindow window;
    const auto sample = [&](bool active) {
        QImage image(200, 160, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        skin_.configuration.DrawSample(window, painter, 10, 20, 150, 120, active);
        return image;
    };
    const QImage active = sample(true);
    EXPECT_EQ(active.pixelColor(9, 60), QColor(Qt::magenta));
    EXPECT_EQ(active.pixelColor(160, 60), QColor(Qt::magenta));
    EXPECT_EQ(active.pixelColor(10, 20), QColor(Qt::red));
    EXPECT_EQ(active.pixelColor(159, 20), QColor(Qt::yellow));
    EXPECT_EQ(active.pixelColor(100, 130), QColor(0xA0, 0xE0, 0xC0));
    EXPECT_EQ(sample(false).pixel(10, 20), QColor(Qt::red).darker().rgb());

    // The adjustments act on it at once.
    skin_.configuration.Colorize = true;
    const QColor grey = sample(true).pixelColor(10, 20);
    EXPECT_EQ(grey, QColor(128, 128, 128));
}

TEST_F(FramePaintTest, ReadsASkinFileWholeOrNotAtAll) {
    const QPixmap title(5, 4);
    const QPixmap cells(7, 1);
    SkinConfiguration& configuration = skin_.configuration;
    EXPECT_ANY_THROW(configuration.LoadXML(
        QStringLiteral("<skin name='Bad'><member name='TitleMetric1' value='99'/>"
                       "<member name='BarColor1' value='red'/></skin>"),
        title, cells));
    EXPECT_EQ(configuration.TitleMetric1, 2);
    EXPECT_TRUE(configuration.Name.isEmpty());

    configuration.LoadXML(Text("<skin name='Good'><member name='TitleMetric1' value='99'/>"
                               "<member name='BarColor1' value='1, 2,3'/>"
                               "<member name='Unknown' value='any'/></skin>"),
                          title, cells);
    EXPECT_EQ(configuration.Name, Text("Good"));
    EXPECT_EQ(configuration.TitleMetric1, 99);
    EXPECT_EQ(configuration.TitleMetric2, 4) << "not in the file";
    EXPECT_EQ(configuration.BarColor1, 0x030201U);
    EXPECT_EQ(configuration.TitlePicture.size(), title.size());
    EXPECT_EQ(configuration.FramePicture.size(), cells.size());
}

} // namespace
} // namespace netrove
