#include "discovery/ComputerFinder.h"

#include "fakes/Text.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include <poll.h>
#include <sched.h>
#include <sys/socket.h>
#include <sys/un.h>

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
                           "ip link set nobody up") == 0;
    }

    static bool WaitForNews(const ComputerFinder& finder) {
        pollfd news = {.fd = finder.Descriptor(), .events = POLLIN, .revents = 0};
        return poll(&news, 1, 5000) == 1;
    }
};

/// A socket of a bus that takes connections and never says a word.
class SilentBus {
public:
    SilentBus() : socket_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        const QByteArray path = folder_.filePath(Text("bus")).toUtf8();
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::copy(path.begin(), path.end(), address.sun_path);
        EXPECT_EQ(bind(socket_.Number(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(socket_.Number(), 8), 0);
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + path);
    }
    ~SilentBus() { qunsetenv("DBUS_SYSTEM_BUS_ADDRESS"); }

private:
    QTemporaryDir folder_;
    UniqueDescriptor socket_;
};

TEST_F(ComputerFinderTest, AsksForTheWholeWindowButEndsAtOnceWithoutALink) {
    QElapsedTimer clock;
    for (const int window : {0, 300}) {
        ComputerFinder finder(window == 0 ? 60s : 300ms);
        EXPECT_FALSE(finder.IsRunning());
        clock.start();
        finder.Start();
        finder.Start(); // joins the first one
        EXPECT_TRUE(finder.IsRunning() || window == 0);
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
    const SilentBus bus;
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
}

} // namespace
} // namespace netrove
