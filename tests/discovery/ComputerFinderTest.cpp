#include "discovery/ComputerFinder.h"

#include "smb/ListeningPort.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

#include <cstdlib>

#include <poll.h>
#include <sched.h>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// Runs in a network of its own, where nothing can be asked but what a test makes.
class ComputerFinderTest : public testing::Test {
protected:
    void SetUp() override {
        if (unshare(CLONE_NEWNET) != 0)
            GTEST_SKIP() << "Needs to be root";
    }

    /// An interface that leads to nobody.
    static bool AddLink() {
        return std::system("ip link add nobody type veth peer name deaf && ip link set deaf up && "
                           "ip address add 10.78.0.1/24 broadcast + dev nobody && "
                           "ip link set nobody up && ip link set lo up") == 0;
    }

    static bool WaitForNews(const ComputerFinder& finder) {
        pollfd news = {.fd = finder.Descriptor(), .events = POLLIN, .revents = 0};
        return poll(&news, 1, 5000) == 1;
    }
};

TEST_F(ComputerFinderTest, AsksForTheWholeWindowButEndsAtOnceWithoutALink) {
    QElapsedTimer clock;
    for (const int window : {0, 300}) {
        ComputerFinder finder(window == 0 ? 60s : 300ms);
        EXPECT_FALSE(finder.IsRunning());
        clock.start();
        finder.Start();
        if (window != 0) {
            finder.Start(); // joins the first one
            EXPECT_TRUE(finder.IsRunning());
        }
        ASSERT_TRUE(WaitForNews(finder));
        EXPECT_FALSE(finder.IsRunning());
        EXPECT_TRUE(finder.Found().empty());
        EXPECT_GE(clock.elapsed(), window);
        EXPECT_LT(clock.elapsed(), window + 250);
        ASSERT_TRUE(window != 0 || AddLink());
    }
}

TEST_F(ComputerFinderTest, IsGivenUpAtOnceThoughTheBusIsSilent) {
    ASSERT_TRUE(AddLink());
    const ListeningPort bus;
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "tcp:host=127.0.0.1,port=" + QByteArray::number(bus.Port()));
    QElapsedTimer clock;
    {
        ComputerFinder finder(60s);
        finder.Start();
        pollfd nothing = {.fd = finder.Descriptor(), .events = POLLIN, .revents = 0};
        EXPECT_EQ(poll(&nothing, 1, 200), 0); // well into the round
        EXPECT_TRUE(finder.IsRunning());
        clock.start();
    }
    EXPECT_LT(clock.elapsed(), 50);
    const pollfd asked = {.fd = bus.Descriptor(), .events = POLLIN, .revents = 0};
    EXPECT_EQ(poll(std::array{asked}.data(), 1, 0), 1) << "the bus was asked";
    qunsetenv("DBUS_SYSTEM_BUS_ADDRESS");
}

} // namespace
} // namespace netrove
