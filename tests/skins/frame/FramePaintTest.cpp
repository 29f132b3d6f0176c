#include "skins/frame/FramePainter.h"
#include "skins/frame/PlainSkin.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

class FramePaintTest : public testing::Test {
protected:
    /// Where each of the pieces begins in the upper row of pixels; -1 for one that isn't there.
    std::vector<int> Starts(int width, bool active, int buttonsLeft, const QString& caption = {}) {
        const FrameLook look(skin_.configuration);
        QImage title(width, look.metrics.titleHeight, QImage::Format_RGB32);
        QPainter painter(&title);
        FramePainter(look, painter, active).PaintTitle(title.rect(), QIcon(), caption, buttonsLeft);
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
}

} // namespace
} // namespace netrove
