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
    SetYieldPass([&] {
        if (++depth < 3)
            Yield();
        SetYieldPass({});
    });
    Yield();
    Yield();
    EXPECT_EQ(depth, 3);
}

TEST_F(YieldTest, OtherThreadsRunNoPass) {
    int passes = 0;
    SetYieldPass([&] { ++passes; });
    SetWaitingPass([&] { return ++passes < 2; });
    std::thread([] {
        Yield();
        EXPECT_TRUE(WhileWaiting());
    }).join();
    EXPECT_EQ(passes, 0);
    EXPECT_TRUE(WhileWaiting());
    EXPECT_FALSE(WhileWaiting()) << "the pass gives the wait up";
}

} // namespace
} // namespace netrove
