#include "fakes/Files.h"
#include "fakes/Text.h"
#include "redirector/Network.h"
#include "redirector/SmbProvider.h"
#include "runtime/Yield.h"
#include "search/NWSearch.h"
#include "smb/ListeningPort.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <set>
#include <thread>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// A port at every address of this machine that answers the question whether it speaks SMB, after a
/// while.
class Doorkeeper {
public:
    explicit Doorkeeper(std::chrono::milliseconds pause = 0ms)
        : pause_(pause), thread_([this] { Run(); }) {}
    ~Doorkeeper() {
        shutdown(listener_.Descriptor(), SHUT_RDWR);
        thread_.join();
    }

    [[nodiscard]] quint16 Port() const { return listener_.Port(); }

private:
    void Run() const {
        while (true) {
            const UniqueDescriptor client(
                accept4(listener_.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
            if (!client.IsOpen())
                return;
            std::array<char, 1024> question{};
            const QByteArray answer = QByteArray::fromHex("00000004fe534d42");
            if (recv(client.Number(), question.data(), question.size(), 0) > 0) {
                std::this_thread::sleep_for(pause_);
                send(client.Number(), answer.constData(), 8, MSG_NOSIGNAL);
            }
        }
    }

    const std::chrono::milliseconds pause_;
    const ListeningPort listener_{INADDR_ANY};
    std::thread thread_;
};

/// What a search is told, and what came of it.
struct Walk {
    Settings settings = {};
    bool recurse = true;
    qsizetype abandonAt = -1; ///< the update with this number is the last

    QStringList happened = {}; ///< updates and matches
    QByteArray log = {};
    std::set<QByteArray> requests = {};
    std::size_t early = 0; ///< connections that were only opened
    std::size_t kept = 0;  ///< connections after the search
};

/// That it only opens a connection: the walk itself never asks for the top of a share so.
bool IsEarly(const QByteArray& request) {
    return request.startsWith(QByteArray::number(static_cast<int>(SmbRequest::Kind::Stat))) &&
           request.endsWith("  0");
}

/// Reads a file whose place of interest is told by its beginning.
QByteArray ReadInPieces(FileAccess& files, const QString& path) {
    const QByteArray beginning = files.Read(path, 0, 100);
    return beginning.isEmpty() ? beginning
                               : beginning + files.Read(path, uchar(beginning.at(0)), 50);
}

class SmbAheadTest : public testing::Test {
protected:
    std::unique_ptr<Network> LocalNetwork(quint16 port, int computers,
                                          const SmbLimits& limits = {}) {
        std::vector<SmbHost> hosts;
        for (int at = 1; at <= computers; ++at)
            hosts.push_back({.name = Text("PC%1").arg(at),
                             .workgroup = at % 2 == 0 ? Text("EVEN") : Text("ODD"),
                             .address = Text("127.0.0.%1").arg(at),
                             .port = port});
        std::vector<std::unique_ptr<NetworkProvider>> providers;
        auto provider = std::make_unique<SmbProvider>(Text("LAN"), hosts,
                                                      QStringLiteral(NETROVE_TREE_HELPER), limits);
        pool_ = &provider->Pool();
        providers.push_back(std::move(provider));
        return std::make_unique<Network>(std::move(providers));
    }

    /// The computers take so many connections in all.
    void Run(Walk& walk, int seed, bool ahead, int connections = 100) {
        const QString requests = WriteFile(folder_.filePath(Text("requests")), {});
        qputenv("NETROVE_TREE", QByteArray::number(seed));
        qputenv("NETROVE_TREE_LOG", QFile::encodeName(requests));
        qputenv("NETROVE_TREE_CONNECTIONS", QByteArray::number(connections));
        SmbLimits limits;
        limits.opening = 0ms; // so that there are several connections to each computer
        const auto network = LocalNetwork(port_, computers_, limits);
        walk.settings.Troubleshooting = 1;
        TroubleshootingLog log(walk.settings);
        const QString logged = folder_.filePath(Text("log"));
        log.Open(logged);
        ExclusionLists lists;
        lists.ParseNetNodes(walk.settings);
        NWSearch search({.files = *network,
                         .settings = walk.settings,
                         .exclusions = lists,
                         .log = log,
                         .ahead = ahead ? network.get() : nullptr,
                         .reading = {.reads = [](const QString&) { return true; },
                                     .read =
                                         [](FileAccess& files, const QString& path) {
                                             static_cast<void>(ReadInPieces(files, path));
                                         }}});
        search.SetRecurseFolders(walk.recurse);
        search.SearchUpdate = [&](const QString& path) {
            walk.happened += path;
            if (walk.happened.size() == walk.abandonAt)
                search.Abandon();
        };
        search.ItemFound = [&](const QString& path) {
            QByteArray content;
            const auto failure = FailureOf([&] { content = ReadInPieces(*network, path); });
            walk.happened += Text("found %1 %2 %3")
                                 .arg(path, QString::number(network->Info(path).length),
                                      failure ? QString::number(failure->Number())
                                              : QString::fromLatin1(content.toHex()));
        };
        search.BeginSearch(Text("*.txt"), std::make_shared<NetResource>(*network));
        walk.kept = pool_->IdleProcesses().size();
        log.Close();
        walk.log = ReadFile(logged).split('\n').mid(2).join('\n'); // without the time
        for (const QByteArray& line : ReadFile(requests).split('\n'))
            if (IsEarly(line))
                ++walk.early;
            else
                walk.requests.insert(line);
    }

    /// Runs a walk alone and then ahead, which has to come to the same; gives the latter.
    Walk ExpectSame(const Walk& told, int seed, int connections = 100) {
        Walk alone = told;
        Walk ahead = told;
        const quint16 distant = std::exchange(port_, door_.Port());
        Run(alone, seed, false);
        port_ = distant;
        Run(ahead, seed, true, connections);
        SCOPED_TRACE(seed);
        EXPECT_EQ(alone.happened, ahead.happened) << connections;
        EXPECT_EQ(alone.log, ahead.log) << connections;
        EXPECT_EQ(alone.requests, ahead.requests) << connections;
        return ahead;
    }

    QTemporaryDir folder_;
    const SmbPool* pool_ = nullptr;
    Doorkeeper door_;
    quint16 port_ = door_.Port();
    int computers_ = 3;
};

TEST_F(SmbAheadTest, ChangesNothingButWhenRequestsAreSent) {
    const struct {
        const char* exclusion;
        bool admin = false;
        bool recurse = true;
        int connections = 100;
    } cases[] = {{"D1|True|Folder"},
                 {"d0\\d1|True|Folder", true},
                 {"C$|True|Folder", true},
                 {"Temp|True|Folder", true, false},
                 {"PC2|True|Workstation"},
                 {"ODD|True|Workgroup"},
                 {"ODD|True|Workgroup", true, true, 2}};
    int seed = 1;
    for (const auto& [exclusion, admin, recurse, connections] : cases) {
        Walk walk{.recurse = recurse};
        walk.settings.ExcNetNodes = {Text(exclusion)};
        walk.settings.IncludeAdminShares = admin;
        EXPECT_GT(ExpectSame(walk, ++seed, connections).happened.size(), 20) << seed;
    }
}

TEST_F(SmbAheadTest, ADistantComputerGetsConnectionsBeforeThereIsWorkForThem) {
    const Doorkeeper distant(20ms);
    port_ = distant.Port();
    computers_ = 1;
    std::size_t early = 0;
    for (const int seed : {30, 31}) // a share whose top can't be read, and one that can
        for (const int connections : {100, 2, 1}) {
            const Walk ahead = ExpectSame({}, seed, connections);
            early += ahead.early;
            EXPECT_LE(ahead.kept, SmbLimits().keptPerServer);
        }
    EXPECT_GT(early, 0U);
}

TEST_F(SmbAheadTest, AnAbandonedWalkEndsAsItWouldAndAsksForNothingElse) {
    for (int seed = 20; seed < 23; ++seed) {
        Walk whole;
        Run(whole, seed, false);
        for (int part = 1; part <= 3; ++part) {
            Walk ahead;
            ahead.abandonAt = whole.happened.size() * part / 4;
            Run(ahead, seed, true);
            Walk alone;
            alone.abandonAt = ahead.abandonAt;
            Run(alone, seed, false);
            EXPECT_EQ(ahead.happened, alone.happened) << seed << ' ' << part;
            EXPECT_EQ(ahead.log, alone.log);
            EXPECT_TRUE(std::includes(whole.requests.begin(), whole.requests.end(),
                                      ahead.requests.begin(), ahead.requests.end()))
                << seed << ' ' << part;
        }
    }
}

TEST_F(SmbAheadTest, DeadComputersCostOneLimit) {
    const ListeningPort silent(INADDR_ANY);
    constexpr int computers = 50;
    SmbLimits limits;
    limits.negotiate = 500ms;
    const auto network = LocalNetwork(silent.Port(), computers, limits);
    const Settings settings;
    TroubleshootingLog log(settings);
    const ExclusionLists lists;
    int passes = 0;
    SetWaitingPass([&] { return ++passes > 0; });
    NWSearch search({.files = *network,
                     .settings = settings,
                     .exclusions = lists,
                     .log = log,
                     .ahead = network.get()});
    QElapsedTimer time;
    time.start();
    search.BeginSearch(Text("*"), std::make_shared<NetResource>(*network));
    SetWaitingPass({});
    EXPECT_GE(time.elapsed(), 500);
    EXPECT_LT(time.elapsed(), 5 * 500);
    EXPECT_GT(passes, 10) << "the window goes on painting";
}

} // namespace
} // namespace netrove
