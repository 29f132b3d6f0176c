#include "storage/WindowPlacement.h"

#include <gtest/gtest.h>

#include <limits>

namespace netrove {
namespace {

constexpr qint32 Far = std::numeric_limits<qint32>::max();
constexpr qint32 FarBack = std::numeric_limits<qint32>::min();

TEST(WindowPlacementTest, PutsAnyPlaceOnAScreen) {
    const WindowPlace screens[] = {
        {0, 300, 20000, 11700}, {20000, 0, 30000, 20000}, {-10000, 0, 10000, 8000}};
    const std::pair<WindowPlace, WindowPlace> cases[] = {
        {{2145, 1200, 11010, 6975}, {2145, 1200, 11010, 6975}},
        {{0, 0, 11010, 6975}, {0, 300, 11010, 6975}},
        {{99999, 1200, 11010, 6975}, {8990, 1200, 11010, 6975}},
        {{500, 1000, 40000, 40000}, {20000, 0, 30000, 20000}},
        {{500, 1000, -5, -5}, {500, 1000, 0, 0}},
        {{15000, 1000, 11010, 6975}, {20000, 1000, 11010, 6975}},
        {{14000, 1000, 11010, 6975}, {8990, 1000, 11010, 6975}},
        {{-9000, -500, 11010, 6975}, {-10000, 0, 10000, 6975}},
        {{Far, Far, Far, Far}, {0, 300, 20000, 11700}},
        {{FarBack, FarBack, FarBack, FarBack}, {0, 300, 0, 0}},
    };
    for (const auto& [stored, expected] : cases)
        EXPECT_EQ(OnScreens(stored, screens), expected) << stored.left;
    EXPECT_EQ(OnScreens({25000, 500, 11010, 6975}, std::span(screens).first(1)),
              (WindowPlace{8990, 500, 11010, 6975}))
        << "its screen is gone";
}

} // namespace
} // namespace netrove
