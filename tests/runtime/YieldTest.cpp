#include "runtime/Yield.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace netrove {
namespace {

class YieldTest : public testing::Test {
protected:
    ~YieldTest() override {
        SetYieldPass({});
        SetWaitingPass({});
        SetYieldAlways(false);
    }
};

TEST_F(YieldTest, MakesAPassOnlyWhenTimeHasGoneBy) {
    int passes = 0;
    SetYieldPass([&] { ++passes; });
    Yield();
    EXPECT_EQ(passes, 1);

    const auto begin = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - begin < std::chrono::milliseconds(50))
        Yield();
    EXPECT_GE(passes, 2);
    EXPECT_LE(passes, 12);

    passes = 0;
    SetYieldAlways(true);
    for (int count = 0; count < 10; ++count)
        Yield();
    EXPECT_EQ(passes, 10);
}

TEST_F(YieldTest, APassMayYieldAndReplaceItself) {
    SetYieldAlways(true);
    int depth = 0;
    int deepest = 0;
    SetYieldPass([&] {
        deepest = std::max(deepest, ++depth);
        if (depth < 3)
            Yield();
        --depth;
        SetYieldPass({});
    });
    Yield();
    Yield();
    EXPECT_EQ(deepest, 3);
}

TEST_F(YieldTest, OtherThreadsRunNoPass) {
    int passes = 0;
    SetYieldPass([&] { ++passes; });
    SetWaitingPass([&] { ++passes; });
    std::thread([] {
        Yield();
        WhileWaiting();
    }).join();
    EXPECT_EQ(passes, 0);
    WhileWaiting();
    EXPECT_EQ(passes, 1);
}

} // namespace
} // namespace netrove
