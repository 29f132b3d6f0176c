#include "redirector/SmbServers.h"

#include "fakes/Text.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace netrove {
namespace {

using namespace std::chrono_literals;

class SmbServersTest : public testing::Test {
protected:
    /// How many connections are opened while so many folders wait that take so long.
    std::size_t Grown(std::chrono::milliseconds answer, std::size_t waiting) {
        servers[name].open = 1;
        servers[name].answer = 0;
        servers.NoteAnswerTime(name, answer);
        while (servers.TakesMore(name, waiting))
            ++servers[name].open;
        return servers[name].open;
    }

    const QString name = Text("server");
    SmbServers::Clock::time_point now = SmbServers::Clock::now();
    SmbLimits limits;
    const std::shared_ptr<DeadServers> dead = std::make_shared<DeadServers>([this] { return now; });
    SmbServers servers{limits, dead, [this] { return now; }};
};

TEST_F(SmbServersTest, ConnectionsGrowWhileTheyPay) {
    EXPECT_EQ(Grown(40ms, 1000), 16u);
    EXPECT_LT(Grown(40ms, 5), 8u);
    EXPECT_EQ(Grown(40ms, 0), 1u);
    EXPECT_LE(Grown(1ms, 10000), 4u) << "a near server's time is work";
    EXPECT_EQ(Grown(1ms, 20), 1u);

    // Where the eighth is refused, seven are used for a while.
    servers[name].open = 8;
    servers.NoteRefused(name);
    servers.NoteClosed(name);
    EXPECT_EQ(Grown(40ms, 1000), 7u);
    now += limits.refusedFor + 1ms;
    EXPECT_EQ(Grown(40ms, 1000), 16u);
}

TEST_F(SmbServersTest, ADeathLastsForAWalkOrALittleWhile) {
    servers.BeginWalk();
    for (int request = 0; request < 10; ++request)
        servers.Note(name, ETIMEDOUT, true);
    now += 24h;
    servers.ForgetOld();
    EXPECT_EQ(servers.DeadStatus(name), ETIMEDOUT);
    servers.BeginWalk();
    EXPECT_EQ(servers.DeadStatus(name), 0);
    servers.Bury(name, EHOSTUNREACH);
    servers.EndWalk();
    EXPECT_EQ(servers.DeadStatus(name), EHOSTUNREACH);
    EXPECT_EQ(SmbServers(limits, dead).DeadStatus(name), EHOSTUNREACH) << "others know it, too";
    now += limits.deadFor;
    EXPECT_EQ(servers.DeadStatus(name), 0);
    servers.Bury(name, ECONNREFUSED);
    EXPECT_EQ(servers.DeadStatus(name), 0);

    servers.Note(name, ETIMEDOUT, true);
    servers.Note(name, EACCES, true);
    servers.Note(name, ETIMEDOUT, true);
    EXPECT_EQ(servers.DeadStatus(name), 0) << "it has answered in between";
}

TEST_F(SmbServersTest, SilentRequestsAskOnceWhetherTheServerIsThere) {
    const auto begin = now;
    servers.NoteSign(name);
    now += limits.silence - 1ms;
    EXPECT_FALSE(servers.BeginProbe(name, begin));
    now += 1ms;
    EXPECT_FALSE(servers.BeginProbe(name, now)) << "whoever has just begun to wait";
    EXPECT_TRUE(servers.BeginProbe(name, begin));
    EXPECT_FALSE(servers.BeginProbe(name, begin)) << "one asks for all";
    servers.EndProbe(name, ECANCELED);
    EXPECT_TRUE(servers.BeginProbe(name, begin)) << "another takes over";

    // Who answers, refuses or says something meanwhile is there, and is asked again later.
    for (const int status : {0, ECONNREFUSED, ETIMEDOUT}) {
        now += 1s;
        if (status == ETIMEDOUT)
            servers.NoteSign(name);
        servers.EndProbe(name, status);
        EXPECT_EQ(servers.DeadStatus(name), 0) << status;
        EXPECT_FALSE(servers.BeginProbe(name, begin)) << status;
        now += limits.silence;
        EXPECT_TRUE(servers.BeginProbe(name, begin)) << status;
    }
    servers.EndProbe(name, EHOSTUNREACH);
    EXPECT_NE(servers.DeadStatus(name), 0);
}

} // namespace
} // namespace netrove
