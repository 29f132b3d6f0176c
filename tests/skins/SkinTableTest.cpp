#include "skins/SkinTable.h"

#include "skins/frame/PaintedSkinFrame.h"

#include <gtest/gtest.h>

#include <sstream>

namespace netrove {
namespace {

/// The numbers that the pictures were drawn for.
TEST(SkinTableTest, HasTheMeasuresOfItsPictures) {
    const char* const measures[] = {
        "13 14 90 142 240 372 0 0 0 0 0 0 0 0 0 0 0 0 ",
        "19 20 90 140 240 400 0 0 0 0 0 0 0 0 0 0 0 0 ",
        "11 14 39 96 180 250 -1 8 8 2 2 3 -1 -1 -10 3 17 30 ",
        "14 13 68 81 143 210 -1 8 8 2 2 2 -1 -1 -6 6 10 0 ",
        "9 8 25 30 65 101 -1 8 8 2 2 3 -1 -1 -14 7 18 0 ",
    };
    using Skin = SkinConfiguration;
    for (int index = 1; const char* expected : measures) {
        PaintedSkinFrame frame;
        Skin skin(frame);
        ApplyBuiltIn(index++, SkinPictures(), skin);
        std::ostringstream own;
        for (const auto number :
             {&Skin::TitleMetric1, &Skin::TitleMetric2, &Skin::TitleMetric3, &Skin::TitleMetric4,
              &Skin::TitleMetric5, &Skin::TitleMetric6, &Skin::FrameFlag1, &Skin::FrameInset1,
              &Skin::FrameInset2, &Skin::FrameInset3, &Skin::FrameInset4, &Skin::FrameMetric1,
              &Skin::FrameFlag2, &Skin::FrameFlag3, &Skin::FrameMetric2, &Skin::FrameMetric3,
              &Skin::FrameMetric4, &Skin::FrameMetric5})
            own << skin.*number << ' ';
        EXPECT_EQ(own.str(), expected);
    }
}

} // namespace
} // namespace netrove
