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
    std::vector<int> Starts(int width, bool active, int buttonsLeft, const QString& caption = {}) {
        const QImage title = Title(width, active, buttonsLeft, caption);
        std::vector<int> starts;
        for (const QColor color : PlainSkin::Pieces) {
            int x = 0;
            while (x < width && title.pixel(x, 0) != (active ? color : color.darker()).rgb())
                ++x;
            starts.push_back(x < width ? x : -1);
        }
        return starts;
    }

    PlainSkin skin_;
};

// Without a caption the tile ends 12 pixels from the left, in the left cap; so there is none.
TEST_F(FramePaintTest, CutsTheTitleIntoItsPiecesAndDropsWhatHasNoRoom) {
    using Expected = std::vector<int>;
    EXPECT_EQ(Starts(200, false, 150), Expected({0, -1, 20, 40, 180}));
    EXPECT_EQ(Starts(200, true, 150), Expected({0, -1, 20, 40, 180}));
    // The right cap loses its left side, then the divider goes, then the left cap's right side.
    EXPECT_EQ(Starts(50, true, 40), Expected({0, -1, 20, -1, 40}));
    EXPECT_EQ(Starts(50, true, 30), Expected({0, -1, -1, 20, 30}));
    EXPECT_EQ(Starts(10, true, 5), Expected({0, -1, -1, -1, -1}));
    // A long caption has the tile behind all of it, and ends before the buttons.
    EXPECT_EQ(Starts(200, true, 150, QString(100, u'x')), Expected({0, 20, -1, 150, 180}));

    // A picture may be of any resolution, and all pieces are as high as the bar.
    QImage sharp = skin_.configuration.TitlePicture.toImage();
    sharp = sharp.scaled(sharp.size() * 2);
    sharp.setDevicePixelRatio(2);
    skin_.configuration.TitlePicture = QPixmap::fromImage(sharp);
    EXPECT_EQ(Title(200, true, 150).height(), PlainSkin::RowHeight);
    EXPECT_EQ(Starts(200, true, 150), Expected({0, -1, 20, 40, 180}));
    skin_.configuration.FrameMetric5 = 90;
    const QImage higher = Title(200, true, 150);
    EXPECT_EQ(higher.height(), 90);
    EXPECT_EQ(higher.pixelColor(199, 89), QColor(Qt::yellow));
}

TEST_F(FramePaintTest, CutsTheCornersThatTheSkinRounds) {
    skin_.configuration.FrameMetric3 = 6;
    skin_.configuration.FrameFlag2 = -1;
    const QRect window(0, 0, 100, 80);
    const QRegion inside = FramePainter::Inside(FrameMetrics(skin_.configuration), window);
    for (const QPoint point : {QPoint(0, 0), QPoint(99, 0), QPoint(1, 1)})
        EXPECT_FALSE(inside.contains(point)) << point.x();
    for (const QPoint point : {QPoint(2, 2), QPoint(6, 0), QPoint(0, 6), QPoint(0, 79)})
        EXPECT_TRUE(inside.contains(point)) << point.x();
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
    for (const int outside : {9, 160})
        EXPECT_EQ(active.pixelColor(outside, 60), QColor(Qt::magenta));
    EXPECT_EQ(active.pixelColor(159, 20), QColor(Qt::yellow));
    EXPECT_EQ(active.pixelColor(100, 130), QColor(0xA0, 0xE0, 0xC0));
    EXPECT_EQ(sample(false).pixel(10, 20), QColor(Qt::red).darker().rgb());
    skin_.configuration.Colorize = true; // acts on it at once
    EXPECT_EQ(sample(true).pixelColor(10, 20), QColor(128, 128, 128));
}

} // namespace
} // namespace netrove
