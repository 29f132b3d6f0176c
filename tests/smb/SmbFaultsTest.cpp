#include "fakes/Files.h"
#include "fakes/Text.h"
#include "redirector/NetworkReachTest.h"
#include "redirector/SmbProvider.h"
#include "runtime/Yield.h"
#include "smb/FaultyProxy.h"
#include "smb/Frames.h"
#include "smb/SambaTest.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <array>
#include <csignal>
#include <thread>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// The limits of the program but one, which a test runs into: the others must hold on a machine
/// that is busy with other tests.
SmbLimits Limits(SmbLimits::Time SmbLimits::*one, SmbLimits::Time value) {
    SmbLimits limits;
    limits.*one = value;
    return limits;
}

QByteArray Said(const SmbAnswer& answer) {
    return Frames::Framed(EncodeAnswer(answer));
}

/// Waits for the end of a process that isn't ours; whether anybody asks how it ended is all one.
bool IsGone(pid_t process) {
    const auto runs = [&] {
        QFile status(Text("/proc/%1/stat").arg(process));
        return status.open(QIODevice::ReadOnly) && !status.readAll().contains(") Z ");
    };
    const QDeadlineTimer limit(5000);
    while (runs() && !limit.hasExpired())
        std::this_thread::yield();
    return !runs();
}

class SmbFaultsTest : public SambaTest {
protected:
    static void SetUpTestSuite() {
        SambaTest::SetUpTestSuite();
        for (int at = 0; at < 5000; ++at)
            samba_->AddFile(Text("public/big/a rather long name of a file %1").arg(at));
        samba_->AddFile(Text("public/small/file"), "content");
    }

    void SetUp() override {
        SambaTest::SetUp();
        SetWaitingPass([this] {
            ++passes_;
            if (duringWait_)
                duringWait_();
            return !isAbandoned_;
        });
    }
    void TearDown() override { SetWaitingPass({}); }

    /// A provider whose computer FILER is at that port, in no workgroup that is known.
    std::unique_ptr<SmbProvider> Provider(quint16 port, const SmbLimits& limits = {},
                                          const QString& helper = SambaServer::Helper()) {
        auto hosts = FilerAt(port);
        hosts[0].workgroup.reset();
        return std::make_unique<SmbProvider>(Text("LAN"), hosts, helper, limits);
    }

    /// How many entries a folder of FILER has; -1 where it can't be listed.
    static int Count(SmbProvider& provider, const QString& folder) {
        FindData data;
        const auto path = UncPath::Parse(QLatin1String("\\\\FILER\\PUBLIC\\") + folder).value();
        auto find = provider.FindFirst(path, data);
        int count = find ? 1 : -1;
        while (find && find->FindNext(data))
            ++count;
        return count;
    }

    /// A helper that says what it has to say at once, whatever it is asked, and then waits or ends.
    QString ScriptedHelper(const QByteArray& speech, const QByteArray& then = "exec sleep 60") {
        const QString path = folder_.filePath(QString::number(++scripts_));
        WriteFile(path + Text(".words"), speech);
        WriteFile(path, "#!" NETROVE_SCRIPT_HELPER "\ncat \"$0.words\" >&3\n" + then + '\n');
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
        return path;
    }

    const QString small_ = Text("small");
    const QString big_ = Text("big");
    const NetRecord filer_{.dwDisplayType = NetEnum::DisplayServer,
                           .lpRemoteName = Text("\\\\FILER")};
    QTemporaryDir folder_;
    int scripts_ = 0;
    int passes_ = 0;
    std::function<void()> duringWait_;
    bool isAbandoned_ = false;
};

TEST_F(SmbFaultsTest, AComputerThatDoesNotAnswerCostsOneLimitAndItsUserIsToldWhy) {
    // Its queue is full, and it says nothing to more.
    const ListeningPort full(INADDR_LOOPBACK, 0);
    std::array<UniqueDescriptor, 3> queue;
    for (UniqueDescriptor& client : queue)
        client = ConnectTo(full.Port(), SOCK_NONBLOCK);
    FaultyProxy silent(samba_->Port());
    silent.FallSilentAfter(0);
    const struct {
        quint16 port;
        SmbLimits::Time SmbLimits::*limit;
        int milliseconds;
        const char* trouble;
    } cases[] = {{full.Port(), &SmbLimits::connect, 600, "It didn't answer in time."},
                 {silent.Port(), &SmbLimits::negotiate, 600, "It didn't answer in time."},
                 {1, &SmbLimits::connect, 0, "It refused the connection: it offers no shares."}};
    const UncPath path = *UncPath::Parse(filer_.lpRemoteName);
    for (const auto& [port, limit, milliseconds, trouble] : cases) {
        SCOPED_TRACE(port);
        const auto provider = Provider(port, Limits(limit, 600ms));
        passes_ = 0;
        QElapsedTimer time;
        time.start();
        EXPECT_EQ(Count(*provider, small_), -1);
        const qint64 first = time.restart();
        EXPECT_GE(first, milliseconds);
        EXPECT_LT(first, 5000);
        EXPECT_GE(passes_, milliseconds / 60) << "the window goes on painting";
        for (int share = 0; share < 10; ++share)
            EXPECT_EQ(Count(*provider, small_ + QString::number(share)), -1);
        EXPECT_FALSE(provider->List(filer_, NetEnum::TypeDisk));
        EXPECT_LT(time.elapsed(), 600);
        EXPECT_EQ(provider->Trouble(path), Text(trouble));
        EXPECT_TRUE(provider->Pool().IdleProcesses().empty()) << "no helper for a dead computer";
    }
    EXPECT_EQ(silent.Connections(), 1);
    for (const quint16 port : {silent.Port(), full.Port()}) {
        const auto provider = Provider(port);
        isAbandoned_ = true;
        EXPECT_FALSE(provider->List(filer_, NetEnum::TypeDisk));
        EXPECT_EQ(provider->Trouble(path), QString())
            << "what the user gave up isn't the computer's fault";
        isAbandoned_ = false;
        silent.Heal();
        EXPECT_EQ(Count(*provider, small_), port == silent.Port() ? 3 : -1);
    }
}

TEST_F(SmbFaultsTest, WhoIsAskedAgainTellsHowItIsNow) {
    auto hosts = FilerAt(samba_->Port());
    hosts.push_back({.name = Text("GONE"), .address = Text("127.0.0.1"), .port = 1});
    std::vector<std::unique_ptr<NetworkProvider>> providers;
    providers.push_back(
        std::make_unique<SmbProvider>(Text("LAN"), hosts, SambaServer::Helper(), SmbLimits()));
    Network network(std::move(providers));
    const QStringList names =
        Texts({"\\\\FILER", "\\\\GONE", "\\\\FILER\\REFUSED", "\\\\FILER\\NONE"});
    for (const QString& name : names)
        network.Report().NoteSilence(name, QString());
    NetworkReachTest test(network);
    test.Begin(names);
    for (const QDeadlineTimer limit(30000); test.IsRunning() && !limit.hasExpired();)
        test.TakeAnswers();
    QStringList reasons;
    for (const NotSearched& one : network.Report().All())
        reasons.append(one.reason);
    EXPECT_EQ(reasons, Texts({"It answers now: search again.",
                              "It refused the connection: it offers no shares.",
                              "It isn't open to this user.", "It isn't there any more."}));
}

TEST_F(SmbFaultsTest, ASlowServerThatIsThereLosesNothing) {
    FaultyProxy proxy(samba_->Port());
    const auto provider = Provider(proxy.Port(), Limits(&SmbLimits::silence, 100ms));
    ASSERT_EQ(Count(*provider, small_), 3);
    proxy.Delay(250ms);
    EXPECT_EQ(Count(*provider, QString()), 4);
    EXPECT_GT(proxy.Connections(), 1) << "it has been asked whether it is there";
    EXPECT_EQ(provider->Pool().IdleProcesses().size(), 1U);
}

TEST_F(SmbFaultsTest, AListingThatTheLibraryLosesIsNoneAndComesWholeLater) {
    enum class Break { Silence, Close, GivenUp };
    for (const Break how : {Break::Silence, Break::Close, Break::GivenUp}) {
        SCOPED_TRACE(static_cast<int>(how));
        FaultyProxy proxy(samba_->Port());
        SmbLimits limits = Limits(&SmbLimits::silence, 500ms);
        limits.negotiate = 1000ms;
        if (how == Break::Silence)
            limits.deadFor = 1ms;
        const auto provider = Provider(proxy.Port(), limits);
        ASSERT_EQ(Count(*provider, small_), 3);
        const pid_t helper = provider->Pool().IdleProcesses().at(0);
        if (how == Break::Close)
            proxy.CloseAfter(20000);
        else
            proxy.FallSilentAfter(20000);
        isAbandoned_ = how == Break::GivenUp;
        QElapsedTimer time;
        time.start();
        EXPECT_EQ(Count(*provider, big_), -1);
        EXPECT_LT(time.elapsed(), 5000) << "not the limit of a request";
        if (how == Break::Silence) {
            EXPECT_GE(time.elapsed(), 500);
            EXPECT_TRUE(IsGone(helper));
        }
        isAbandoned_ = false;
        proxy.Heal();
        EXPECT_EQ(Count(*provider, big_), 5002) << "nothing is held against the server";
    }
}

TEST_F(SmbFaultsTest, AConnectionLostBetweenRequestsIsMadeAnew) {
    FaultyProxy proxy(samba_->Port());
    const auto provider = Provider(proxy.Port());
    const auto file = UncPath::Parse(Text("\\\\FILER\\PUBLIC\\small\\file")).value();
    ASSERT_EQ(provider->Info(file).length, 7);
    const std::function<void()> requests[] = {
        [&] { EXPECT_EQ(Count(*provider, small_), 3); },
        [&] { EXPECT_EQ(provider->Read(file, 0, 100), QByteArray("content")); },
        [&] { EXPECT_EQ(provider->Read(file, 3, 100), QByteArray("tent")); },
        [&] { EXPECT_EQ(Count(*provider, big_), 5002); }};
    for (const auto& request : requests) {
        EXPECT_EQ(proxy.CloseAll(), 1);
        request();
    }
}

TEST_F(SmbFaultsTest, AHelperThatDiesIsReplacedAndNoneIsLeftBehind) {
    FaultyProxy proxy(samba_->Port());
    auto provider = Provider(proxy.Port());
    const auto helper = [&] { return provider->Pool().IdleProcesses().at(0); };
    ASSERT_EQ(Count(*provider, small_), 3);

    // While it waits for work:
    const pid_t idle = helper();
    kill(idle, SIGKILL);
    ASSERT_TRUE(IsGone(idle));
    EXPECT_EQ(Count(*provider, big_), 5002);

    // In the middle of a request:
    proxy.FallSilentAfter(0);
    duringWait_ = [busy = helper()] { kill(busy, SIGKILL); };
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(Count(*provider, Text("another")), -1);
    EXPECT_LT(time.elapsed(), 10000) << "its death is noticed before the limit";
    duringWait_ = {};
    proxy.Heal();
    EXPECT_EQ(Count(*provider, QString()), 4);
    const pid_t last = helper();
    provider.reset();
    EXPECT_TRUE(IsGone(last));
}

TEST_F(SmbFaultsTest, AHelperThatTalksNonsenseFailsItsRequest) {
    const QByteArray hello = Said(SmbHello());
    const std::pair<const char*, QString> helpers[] = {
        {"no such program", Text("/nonexistent/netrove-smb")},
        {"nothing and ends", ScriptedHelper(QByteArray(), "exit 0")},
        {"garbage", ScriptedHelper(QByteArray::fromHex("00000004deadbeef"))},
        {"an endless frame", ScriptedHelper(QByteArray::fromHex("ffffffff") + QByteArray(99, 'x'))},
        {"another version", ScriptedHelper(Said(SmbHello{.version = 1}) + Said(SmbEnd()))},
        {"no hello", ScriptedHelper(Said(SmbEnd()))},
        {"another kind of part", ScriptedHelper(hello + Said(SmbShares()) + Said(SmbEnd()))},
        {"a negative status", ScriptedHelper(hello + Said(SmbEnd{.status = -1}))}};
    for (const auto& [what, helper] : helpers) {
        const auto provider = Provider(samba_->Port(), Limits(&SmbLimits::listing, 500ms), helper);
        EXPECT_EQ(Count(*provider, small_), -1) << what;
        EXPECT_TRUE(provider->Pool().IdleProcesses().empty()) << what;
    }
}

TEST_F(SmbFaultsTest, WhatHadComeOfAListIsKept) {
    const QByteArray hello = Said(SmbHello());
    const QByteArray entries = Said(SmbEntries{{.name = Text("a")}, {.name = Text("b")}});
    const QByteArray shares = Said(SmbShares{{.name = Text("A")}, {.name = Text("B")}});
    SmbLimits limits = Limits(&SmbLimits::listing, 500ms);
    limits.request = limits.listing;
    for (const auto& [end, then] : {std::pair(QByteArray(), "exit 0"),
                                    {QByteArray(), "exec sleep 60"},
                                    {QByteArray("garbage"), "exec sleep 60"},
                                    {Said(SmbEnd{.status = EIO}), "exec sleep 60"}}) {
        SCOPED_TRACE(then + end.toStdString());
        const auto folder =
            Provider(samba_->Port(), limits, ScriptedHelper(hello + entries + end, then));
        EXPECT_EQ(Count(*folder, small_), 2);
        EXPECT_EQ(Count(*folder, small_), 2) << "the second time, too";
        const auto computer =
            Provider(samba_->Port(), limits, ScriptedHelper(hello + shares + end, then));
        const auto disks = computer->List(filer_, NetEnum::TypeDisk);
        ASSERT_TRUE(disks);
        EXPECT_EQ(disks->size(), 2U);
        EXPECT_TRUE(computer->List(filer_, NetEnum::TypePrint)) << "of the same list";
    }
    // A wait that the user has given up gives nothing that would be taken for the whole.
    isAbandoned_ = true;
    EXPECT_EQ(Count(*Provider(samba_->Port(), {}, ScriptedHelper(hello + entries)), small_), -1);
}

TEST_F(SmbFaultsTest, TheQuestionForAWorkgroupHasItsOwnLimit) {
    const auto provider = Provider(samba_->Port(), Limits(&SmbLimits::workgroup, 200ms),
                                   ScriptedHelper(Said(SmbHello())));
    QElapsedTimer time;
    time.start();
    for (int round = 0; round < 3; ++round)
        EXPECT_EQ(provider->Workgroup(Text("FILER")), QString());
    EXPECT_GE(time.elapsed(), 600) << "the computer doesn't count as one that never answers";
    EXPECT_GE(passes_, 3);
}

TEST_F(SmbFaultsTest, AJunctionThatLeadsBackIsNotFollowedForever) {
    const quint32 folder = FileAttribute::Directory;
    const SmbEntries entries{
        {.name = Text("loop"), .attributes = folder | FileAttribute::ReparsePoint},
        {.name = Text("folder"), .attributes = folder}};
    WriteFile(folder_.filePath(Text("answer")), Said(entries) + Said(SmbEnd()));
    // The same answer to every request.
    const QByteArray hello = Said(SmbHello());
    const auto provider = Provider(
        samba_->Port(), {},
        ScriptedHelper(hello, "head -c " + QByteArray::number(hello.size()) + " <&3 >/dev/null\n" +
                                  "while dd bs=65536 count=1 <&3 >/dev/null 2>&1; do\n"
                                  "cat \"${0%/*}/answer\" >&3; done"));
    for (const char* path : {"a", "a\\loop", "a\\loop\\folder", "a\\loop\\folder\\loop",
                             "a\\loop\\folder\\loop\\folder", "a\\folder\\folder\\folder"})
        EXPECT_EQ(Count(*provider, Text(path)), 2) << path;
    EXPECT_EQ(Count(*provider, Text("a\\loop\\folder\\loop\\loop")), -1);
}

} // namespace
} // namespace netrove
