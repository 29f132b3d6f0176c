#include "redirector/SmbComputers.h"

#include "discovery/UniqueDescriptor.h"
#include "fakes/Text.h"
#include "runtime/Yield.h"

#include <gtest/gtest.h>

#include <sys/eventfd.h>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// Finds what it is told to, when it is told to.
class FakeComputerSource : public ComputerSource {
public:
    std::vector<FoundComputer> Computers;
    int Rounds = 0;
    bool Running = false;

    void Start() override {
        ++Rounds;
        Running = true;
    }
    void Finish() {
        Running = false;
        found_ = Computers;
        eventfd_write(descriptor_.Number(), 1);
    }
    bool IsRunning() const override { return Running; }
    std::vector<FoundComputer> Found() const override {
        eventfd_t value = 0;
        eventfd_read(descriptor_.Number(), &value);
        return found_;
    }
    int Descriptor() const override { return descriptor_.Number(); }

private:
    std::vector<FoundComputer> found_;
    UniqueDescriptor descriptor_{eventfd(0, EFD_NONBLOCK)};
};

FoundComputer Computer(const char* name, const char* workgroup, const QStringList& addresses) {
    return {.name = Text(name),
            .workgroup = *workgroup ? std::optional(Text(workgroup)) : std::nullopt,
            .addresses = addresses,
            .foundBy = {},
            .model = {}};
}

class SmbComputersTest : public testing::Test {
protected:
    SmbComputersTest() {
        SetWaitingPass([this] {
            source->Finish();
            return goesOn;
        });
    }
    ~SmbComputersTest() override { SetWaitingPass({}); }

    /// The computers of a workgroup with their addresses, joined by blanks.
    [[nodiscard]] std::string In(const char* workgroup) const {
        QStringList names;
        for (const SmbHost* host : computers.In(Text(workgroup)))
            names.append(host->name + u'@' + host->address);
        return names.join(u' ').toStdString();
    }
    [[nodiscard]] std::string Workgroups() const {
        return computers.Workgroups().join(u' ').toStdString();
    }

    bool goesOn = true;
    FakeComputerSource* source = new FakeComputerSource; ///< the computers' own
    SmbComputers::Clock::time_point now = SmbComputers::Clock::now();
    SmbComputers computers{{{.name = Text("Nas"), .address = Text("198.51.100.1")},
                            {.name = Text("nas"), .address = Text("198.51.100.9")},
                            {.name = Text("OLD"), .workgroup = Text("OFFICE")}},
                           std::unique_ptr<ComputerSource>(source),
                           [this] { return now; }};
};

TEST_F(SmbComputersTest, FoundOnesJoinTheConfigured) {
    EXPECT_EQ(Workgroups(), "WORKGROUP OFFICE");
    source->Computers = {Computer("zoe", "", {Text("fe80::1%eth0")}),
                         Computer("NAS", "Home", {Text("198.51.100.7")}),
                         Computer("Ada", "office", {Text("fe80::2%eth0"), Text("2001:db8::2")}),
                         Computer("old", "HOME", {Text("198.51.100.3")})};
    EXPECT_TRUE(computers.Look());
    EXPECT_EQ(Workgroups(), "Home OFFICE WORKGROUP");
    EXPECT_EQ(In("home"), "Nas@198.51.100.1");
    EXPECT_EQ(In("OFFICE"), "OLD@198.51.100.3 Ada@2001:db8::2");
    EXPECT_EQ(In("WORKGROUP"), "zoe@fe80::1%eth0");
    EXPECT_EQ(computers.AddressOf(Text("NAS"))->host, Text("198.51.100.1"));
    EXPECT_FALSE(computers.AddressOf(Text("old"))) << "its name is enough";
    computers.NoteWorkgroup(Text("ZOE"), Text("Home"));
    EXPECT_EQ(computers.WorkgroupOf(*computers.Find(Text("Zoe"))), Text("Home"));
    EXPECT_EQ(computers.Find(Text("nobody")), nullptr);
}

TEST_F(SmbComputersTest, AFreshLookIsGivenAtOnceAndNothingIsForgottenSoon) {
    source->Computers = {Computer("A", "W", {}), Computer("B", "W", {})};
    EXPECT_TRUE(computers.Look());
    EXPECT_TRUE(computers.Look());
    EXPECT_EQ(source->Rounds, 1);
    // The next look goes on behind, and is seen by the one after it.
    source->Computers = {Computer("A", "W", {}), Computer("C", "W", {})};
    now += 30s;
    EXPECT_TRUE(computers.Look());
    EXPECT_TRUE(source->Running);
    EXPECT_EQ(In("W"), "A@ B@");
    source->Finish();
    now += 20s;
    EXPECT_TRUE(computers.Look());
    EXPECT_EQ(In("W"), "A@ B@ C@");
    source->Finish();
    now += SmbComputers::Kept;
    EXPECT_TRUE(computers.Look()) << "not fresh: it waits";
    EXPECT_FALSE(source->Running);
    EXPECT_EQ(source->Rounds, 4);
    EXPECT_EQ(In("W"), "A@ C@");
}

TEST_F(SmbComputersTest, ASearchLooksForItself) {
    source->Computers = {Computer("A", "W", {})};
    EXPECT_TRUE(computers.Look());
    now += SmbComputers::Current;
    computers.BeginWalk();
    EXPECT_TRUE(computers.Look());
    EXPECT_EQ(source->Rounds, 1) << "that look was for this search";
    computers.EndWalk();

    // One that goes on behind, from before the search, isn't enough.
    now += SmbComputers::New;
    EXPECT_TRUE(computers.Look());
    EXPECT_TRUE(source->Running);
    now += 3s;
    computers.BeginWalk();
    source->Computers = {Computer("A", "W", {}), Computer("B", "W", {})};
    EXPECT_TRUE(computers.Look());
    EXPECT_EQ(source->Rounds, 3);
    EXPECT_TRUE(computers.Look());
    EXPECT_EQ(source->Rounds, 3) << "once for the search";
    EXPECT_EQ(In("W"), "A@ B@");
}

TEST_F(SmbComputersTest, WhoKnowsNobodyLooksAgainAndTheWaitCanBeGivenUp) {
    auto* alone = new FakeComputerSource;
    SetWaitingPass([&] {
        alone->Finish();
        return goesOn;
    });
    SmbComputers nobody({}, std::unique_ptr<ComputerSource>(alone), [this] { return now; });
    EXPECT_TRUE(nobody.Look());
    alone->Computers = {Computer("A", "W", {})};
    goesOn = false;
    EXPECT_FALSE(nobody.Look());
    EXPECT_TRUE(nobody.All().empty());
    goesOn = true;
    EXPECT_TRUE(nobody.Look());
    EXPECT_EQ(nobody.All().size(), 1U);
}

} // namespace
} // namespace netrove
