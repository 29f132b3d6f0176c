#include "platform/network/SmbProvider.h"
#include "runtime/Yield.h"
#include "smb/FaultyProxy.h"
#include "smb/Frames.h"
#include "smb/SambaServer.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <csignal>
#include <thread>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

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

/// A port that never takes a connection: its queue is full, and it says nothing to more.
class FullPort {
public:
    FullPort() {
        listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* generic = reinterpret_cast<sockaddr*>(&address);
        if (bind(listener_, generic, size) != 0 || listen(listener_, 0) != 0 ||
            getsockname(listener_, generic, &size) != 0)
            return;
        port_ = ntohs(address.sin_port);
        for (int& client : clients_) {
            client = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
            static_cast<void>(connect(client, generic, size));
        }
    }
    FullPort(const FullPort&) = delete;
    FullPort& operator=(const FullPort&) = delete;
    ~FullPort() {
        for (const int client : clients_)
            close(client);
        close(listener_);
    }

    [[nodiscard]] quint16 Port() const { return port_; }

private:
    int listener_ = -1;
    quint16 port_ = 0;
    std::array<int, 3> clients_{};
};

class SmbFaultsTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        samba_ = std::make_unique<SambaServer>();
        for (int at = 0; at < 5000; ++at)
            samba_->AddFile(QStringLiteral("public/big/a rather long name of a file %1").arg(at));
        samba_->AddFile(QStringLiteral("public/small/file"), "content");
    }
    static void TearDownTestSuite() { samba_.reset(); }

    void SetUp() override {
        if (!SambaServer::IsAvailable())
            GTEST_SKIP() << "Samba needs to be installed and the user to be root";
        ASSERT_TRUE(samba_->IsRunning());
        SetWaitingPass([this] { return Pass(); });
    }
    void TearDown() override { SetWaitingPass({}); }

    bool Pass() {
        ++passes_;
        if (duringWait_)
            duringWait_();
        return !isAbandoned_;
    }

    /// A provider whose computer FILER is at that port, in no workgroup that is known.
    std::unique_ptr<SmbProvider> Provider(quint16 port, const SmbLimits& limits = {},
                                          const QString& helper = SambaServer::Helper()) {
        SmbHost host = samba_->Host();
        host.port = port;
        host.workgroup.reset();
        return std::make_unique<SmbProvider>(QStringLiteral("LAN"), std::vector<SmbHost>{host},
                                             helper, limits);
    }

    static SmbRequest Listing(quint16 port, const QString& folder) {
        const SmbHost host = samba_->Host();
        return {.kind = SmbRequest::Kind::ListFolder,
                .host = host.address,
                .port = port,
                .share = QStringLiteral("public"),
                .path = folder};
    }

    /// How many entries a folder of FILER has; -1 where it can't be listed.
    static int Count(SmbProvider& provider, const QString& folder) {
        FindData data;
        const auto path = UncPath::Parse(QLatin1String("\\\\FILER\\PUBLIC\\") + folder).value();
        auto find = provider.FindFirst(path, data);
        if (!find)
            return -1;
        int count = 1;
        while (find->FindNext(data))
            ++count;
        return count;
    }

    /// A helper that says what it has to say at once, whatever it is asked, and then waits or ends.
    QString ScriptedHelper(const QByteArray& speech, const QByteArray& then = "exec sleep 60") {
        const QString number = QString::number(++scripts_);
        QFile words(folder_.filePath(QLatin1String("words") + number));
        QFile script(folder_.filePath(QLatin1String("helper") + number));
        if (!words.open(QIODevice::WriteOnly) || !script.open(QIODevice::WriteOnly))
            return QString();
        words.write(speech);
        script.write("#!" NETROVE_SCRIPT_HELPER "\ncat '" + QFile::encodeName(words.fileName()) +
                     "' >&3\n" + then + "\n");
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        return script.fileName();
    }

    /// A helper that gives the same answer to every request.
    QString AnsweringHelper(const QByteArray& answer) {
        QFile words(folder_.filePath(QStringLiteral("answer")));
        if (!words.open(QIODevice::WriteOnly))
            return QString();
        words.write(answer);
        const QByteArray hello = Said(SmbHello());
        return ScriptedHelper(hello, "head -c " + QByteArray::number(hello.size()) +
                                         " <&3 >/dev/null\n"
                                         "while dd bs=65536 count=1 <&3 >/dev/null 2>&1; do\n"
                                         "cat '" +
                                         QFile::encodeName(words.fileName()) + "' >&3; done");
    }

    /// Waits for the end of a process that isn't ours; whether anybody asks how it ended is all
    /// one.
    static bool IsGone(pid_t process) {
        const auto runs = [&] {
            QFile status(QStringLiteral("/proc/%1/stat").arg(process));
            return status.open(QIODevice::ReadOnly) && !status.readAll().contains(") Z ");
        };
        QElapsedTimer time;
        time.start();
        while (runs() && time.elapsed() < 5000)
            std::this_thread::yield();
        return !runs();
    }

    static QByteArray Said(const SmbAnswer& answer) { return Frames::Framed(EncodeAnswer(answer)); }

    static inline std::unique_ptr<SambaServer> samba_;
    const QString small_ = QStringLiteral("small");
    const QString big_ = QStringLiteral("big");
    QTemporaryDir folder_;
    int scripts_ = 0;
    int passes_ = 0;
    std::function<void()> duringWait_;
    bool isAbandoned_ = false;
};

TEST_F(SmbFaultsTest, TellsWhyAComputerDidNotAnswer) {
    const NetRecord filer{.dwDisplayType = NetEnum::DisplayServer,
                          .lpRemoteName = QStringLiteral("\\\\FILER")};
    FaultyProxy silent(samba_->Port());
    silent.FallSilentAfter(0);
    auto provider = Provider(silent.Port(), {.negotiate = 100ms});
    EXPECT_FALSE(provider->List(filer, NetEnum::TypeDisk));
    EXPECT_EQ(provider->Trouble(QStringLiteral("filer")),
              QStringLiteral("It didn't answer in time."));
    provider = Provider(1);
    EXPECT_FALSE(provider->List(filer, NetEnum::TypeDisk));
    EXPECT_EQ(provider->Trouble(QStringLiteral("FILER")),
              QStringLiteral("It refused the connection: it offers no shares."));
}

TEST_F(SmbFaultsTest, APortThatTakesNoConnectionCostsOneLimit) {
    const FullPort port;
    const auto provider = Provider(port.Port(), Limits(&SmbLimits::connect, 600ms));
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(Count(*provider, small_), -1);
    const qint64 first = time.restart();
    EXPECT_GE(first, 600);
    EXPECT_LT(first, 5000);
    EXPECT_GT(passes_, 10);
    for (int share = 0; share < 10; ++share)
        EXPECT_EQ(Count(*provider, small_ + QString::number(share)), -1);
    EXPECT_LT(time.elapsed(), 600);
    EXPECT_TRUE(provider->Pool().IdleProcesses().empty()) << "no helper for a dead computer";
}

TEST_F(SmbFaultsTest, ADeadComputerIsTriedEverMoreRarely) {
    const FullPort port;
    SmbLimits limits = Limits(&SmbLimits::connect, 150ms);
    limits.deadFor = 200ms;
    const auto provider = Provider(port.Port(), limits);
    /// Asks until that takes the limit again, and gives the time until then in milliseconds.
    const auto rest = [&] {
        QElapsedTimer all;
        all.start();
        for (;;) {
            const qint64 begun = all.elapsed();
            EXPECT_EQ(Count(*provider, small_), -1);
            if (all.elapsed() - begun >= 150)
                return begun;
            usleep(5000);
        }
    };
    EXPECT_EQ(rest(), 0);
    EXPECT_GE(rest(), 199);
    EXPECT_GE(rest(), 399);
    EXPECT_GE(rest(), 799);
}

TEST_F(SmbFaultsTest, AComputerThatSaysNothingCostsOneLimit) {
    FaultyProxy proxy(samba_->Port());
    proxy.FallSilentAfter(0);
    const auto provider = Provider(proxy.Port(), Limits(&SmbLimits::negotiate, 600ms));
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(Count(*provider, small_), -1);
    EXPECT_GE(time.restart(), 600);
    EXPECT_EQ(Count(*provider, big_), -1);
    EXPECT_LT(time.elapsed(), 600);
    EXPECT_EQ(proxy.Connections(), 1);
}

TEST_F(SmbFaultsTest, AServerThatStopsAnsweringCostsTwoLimits) {
    const auto provider = Provider(samba_->Port(), Limits(&SmbLimits::listing, 300ms),
                                   ScriptedHelper(Said(SmbHello())));
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(Count(*provider, small_), -1);
    EXPECT_EQ(Count(*provider, small_), -1);
    EXPECT_GE(time.restart(), 600);
    EXPECT_EQ(Count(*provider, small_), -1);
    EXPECT_LT(time.elapsed(), 300);
}

TEST_F(SmbFaultsTest, AServerThatFallsSilentCostsOneLimitForAllWhoWait) {
    FaultyProxy proxy(samba_->Port());
    proxy.Delay(5ms); // so that several connections pay
    SmbLimits limits = Limits(&SmbLimits::silence, 700ms);
    limits.negotiate = 800ms;
    limits.opening = 0ms;
    SmbPool pool(SambaServer::Helper(), limits);
    const SmbRequest request = Listing(proxy.Port(), small_);
    ASSERT_EQ(pool.Run(request, [](SmbAnswer&) { return true; }), 0);
    constexpr int connections = 6;
    std::atomic<int> underWay = 0;
    const auto work = [&] {
        for (;;) {
            auto turn = pool.TryTakeTurn(request, 1000);
            if (!turn) {
                usleep(1000);
                continue;
            }
            ++underWay;
            const int status = pool.Run(std::move(*turn), request, [](SmbAnswer&) { return true; });
            --underWay;
            if (status != 0)
                return status;
        }
    };
    std::vector<std::thread> threads;
    std::array<int, connections> statuses{};
    for (int& status : statuses)
        threads.emplace_back([&] { status = work(); });
    while (underWay < connections || proxy.Connections() <= connections) // one was a test
        usleep(1000);
    proxy.FallSilentAfter(0);
    const int before = proxy.Connections();
    QElapsedTimer time;
    time.start();
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_GE(time.elapsed(), 1400);
    EXPECT_LT(time.elapsed(), 4000);
    for (const int status : statuses)
        EXPECT_EQ(status, ETIMEDOUT);
    EXPECT_LE(proxy.Connections(), before + 1) << "one probe for all";
    EXPECT_TRUE(pool.IdleProcesses().empty());
    time.restart();
    EXPECT_EQ(pool.Run(request, [](SmbAnswer&) { return true; }), ETIMEDOUT);
    EXPECT_LT(time.elapsed(), 500) << "what comes later doesn't wait";
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

TEST_F(SmbFaultsTest, SilenceInTheMiddleOfAListingEndsTheHelper) {
    FaultyProxy proxy(samba_->Port());
    const auto provider = Provider(proxy.Port(), Limits(&SmbLimits::listing, 2000ms));
    ASSERT_GT(Count(*provider, small_), 0);
    const auto before = provider->Pool().IdleProcesses();
    proxy.FallSilentAfter(20000);
    EXPECT_EQ(Count(*provider, big_), -1);
    EXPECT_TRUE(provider->Pool().IdleProcesses().empty());
    EXPECT_TRUE(IsGone(before.at(0)));
    proxy.Heal();
    EXPECT_EQ(Count(*provider, big_), 5002);
}

TEST_F(SmbFaultsTest, AServerThatClosesInAListingLeavesItOut) {
    FaultyProxy proxy(samba_->Port());
    const auto provider = Provider(proxy.Port());
    ASSERT_GT(Count(*provider, small_), 0);
    proxy.CloseAfter(20000);
    EXPECT_EQ(Count(*provider, big_), -1);
    proxy.Heal();
    EXPECT_EQ(Count(*provider, big_), 5002);
}

TEST_F(SmbFaultsTest, AConnectionLostBetweenRequestsIsMadeAnew) {
    FaultyProxy proxy(samba_->Port());
    const auto provider = Provider(proxy.Port());
    const auto file = UncPath::Parse(QStringLiteral("\\\\FILER\\PUBLIC\\small\\file")).value();
    ASSERT_EQ(provider->Info(file).length, 7);
    EXPECT_EQ(proxy.CloseAll(), 1);
    EXPECT_EQ(Count(*provider, small_), 3);
    EXPECT_EQ(proxy.CloseAll(), 1);
    EXPECT_EQ(provider->Read(file, 0, 100), QByteArray("content"));
    EXPECT_EQ(proxy.CloseAll(), 1);
    EXPECT_EQ(provider->Read(file, 3, 100), QByteArray("tent"));
    EXPECT_EQ(proxy.CloseAll(), 1);
    EXPECT_EQ(Count(*provider, big_), 5002);
}

TEST_F(SmbFaultsTest, AHelperThatDiesIsReplaced) {
    FaultyProxy proxy(samba_->Port());
    const auto provider = Provider(proxy.Port());
    ASSERT_EQ(Count(*provider, small_), 3);

    // While it waits for work:
    const pid_t idle = provider->Pool().IdleProcesses().at(0);
    kill(idle, SIGKILL);
    ASSERT_TRUE(IsGone(idle));
    EXPECT_EQ(Count(*provider, big_), 5002);

    // In the middle of a request:
    const pid_t helper = provider->Pool().IdleProcesses().at(0);
    proxy.FallSilentAfter(0);
    duringWait_ = [helper] { kill(helper, SIGKILL); };
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(Count(*provider, QStringLiteral("another")), -1);
    EXPECT_LT(time.elapsed(), 10000) << "its death is noticed before the limit";
    duringWait_ = {};
    proxy.Heal();
    EXPECT_EQ(Count(*provider, QString()), 4);
}

TEST_F(SmbFaultsTest, AHelperThatTalksNonsenseFailsItsRequest) {
    const SmbEntries some{{.name = QStringLiteral("a")}};
    const std::vector<std::pair<const char*, QString>> helpers{
        {"no such program", QStringLiteral("/nonexistent/netrove-smb")},
        {"nothing and ends", ScriptedHelper(QByteArray(), "exit 0")},
        {"garbage", ScriptedHelper(QByteArray::fromHex("00000004deadbeef"))},
        {"an endless frame", ScriptedHelper(QByteArray::fromHex("ffffffff") + QByteArray(99, 'x'))},
        {"another version", ScriptedHelper(Said(SmbHello{.version = 1}) + Said(SmbEnd()))},
        {"no hello", ScriptedHelper(Said(SmbEnd()))},
        {"another kind of part",
         ScriptedHelper(Said(SmbHello()) + Said(SmbShares()) + Said(SmbEnd()))},
        {"a negative status", ScriptedHelper(Said(SmbHello()) + Said(SmbEnd{.status = -1}))},
        {"half an answer", ScriptedHelper(Said(SmbHello()) + Said(some), "exit 0")},
        {"half an answer, then nothing", ScriptedHelper(Said(SmbHello()) + Said(some))}};
    for (const auto& [what, helper] : helpers) {
        const auto provider = Provider(samba_->Port(), Limits(&SmbLimits::listing, 500ms), helper);
        EXPECT_EQ(Count(*provider, small_), -1) << what;
        EXPECT_TRUE(provider->Pool().IdleProcesses().empty()) << what;
    }
    // The script itself is a good one.
    const auto provider = Provider(samba_->Port(), {},
                                   ScriptedHelper(Said(SmbHello()) + Said(some) + Said(SmbEnd())));
    EXPECT_EQ(Count(*provider, small_), 1);
}

TEST_F(SmbFaultsTest, TheQuestionForAWorkgroupHasItsOwnLimit) {
    const auto limit = 200ms;
    const auto provider = Provider(samba_->Port(), Limits(&SmbLimits::workgroup, limit),
                                   ScriptedHelper(Said(SmbHello())));
    const auto begin = std::chrono::steady_clock::now();
    constexpr int times = 3;
    for (int time = 0; time < times; ++time)
        EXPECT_EQ(provider->Workgroup(QStringLiteral("FILER")), QString());
    EXPECT_GE(std::chrono::steady_clock::now() - begin, times * limit)
        << "the computer doesn't count as one that never answers";
    EXPECT_GE(passes_, times);
}

TEST_F(SmbFaultsTest, AJunctionThatLeadsBackIsNotFollowedForever) {
    const SmbEntries entries{
        {.name = QStringLiteral("loop"),
         .attributes = FileAttribute::Directory | FileAttribute::ReparsePoint},
        {.name = QStringLiteral("folder"), .attributes = FileAttribute::Directory}};
    const auto provider =
        Provider(samba_->Port(), {}, AnsweringHelper(Said(entries) + Said(SmbEnd())));
    EXPECT_EQ(Count(*provider, QStringLiteral("a")), 2);
    EXPECT_EQ(Count(*provider, QStringLiteral("a\\loop")), 2);
    EXPECT_EQ(Count(*provider, QStringLiteral("a\\loop\\folder")), 2);
    EXPECT_EQ(Count(*provider, QStringLiteral("a\\loop\\folder\\loop")), 2);
    EXPECT_EQ(Count(*provider, QStringLiteral("a\\loop\\folder\\loop\\loop")), -1);
    EXPECT_EQ(Count(*provider, QStringLiteral("a\\loop\\folder\\loop\\folder")), 2);
    EXPECT_EQ(Count(*provider, QStringLiteral("a\\folder\\folder\\folder\\folder")), 2);
}

TEST_F(SmbFaultsTest, AWaitThatIsGivenUpFailsTheRequestAndNoMore) {
    FaultyProxy proxy(samba_->Port());
    const auto provider = Provider(proxy.Port());
    QElapsedTimer time;
    time.start();
    // While it is being reached, and in the middle of a request:
    for (const auto& [bytes, folder, entries] :
         {std::tuple(0, small_, 3), std::tuple(20000, big_, 5002)}) {
        proxy.FallSilentAfter(bytes);
        isAbandoned_ = true;
        EXPECT_EQ(Count(*provider, folder), -1);
        isAbandoned_ = false;
        proxy.Heal();
        EXPECT_EQ(Count(*provider, folder), entries) << "nothing is held against the server";
    }
    EXPECT_LT(time.elapsed(), 10000);
}

TEST_F(SmbFaultsTest, NoHelperIsLeftBehind) {
    std::vector<pid_t> helpers;
    {
        const auto provider = Provider(samba_->Port());
        ASSERT_GT(Count(*provider, small_), 0);
        helpers = provider->Pool().IdleProcesses();
    }
    ASSERT_EQ(helpers.size(), 1u);
    EXPECT_TRUE(IsGone(helpers[0]));
}

/// Nothing of a program runs on that is killed.
TEST_F(SmbFaultsTest, HelpersEndWithTheProgram) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const pid_t program = fork();
    if (program == 0) {
        SmbLauncher launcher(SambaServer::Helper());
        const std::array workers{SmbWorker::Start(launcher), SmbWorker::Start(launcher)};
        for (const auto& worker : workers) {
            const pid_t helper = worker->Greet(5000ms) ? worker->ProcessId() : -1;
            if (write(ends[1], &helper, sizeof helper) != sizeof helper)
                _exit(1);
        }
        pause();
    }
    std::array<pid_t, 2> helpers{};
    for (pid_t& helper : helpers) {
        ASSERT_EQ(read(ends[0], &helper, sizeof helper), ssize_t(sizeof helper));
        ASSERT_GT(helper, 0);
        EXPECT_EQ(kill(helper, 0), 0);
    }
    kill(program, SIGKILL);
    waitpid(program, nullptr, 0);
    for (const pid_t helper : helpers)
        EXPECT_TRUE(IsGone(helper));
    for (const int one : ends)
        close(one);
}

} // namespace
} // namespace netrove
