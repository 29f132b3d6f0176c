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
    /// The computers take so many connections in all.
    Walk Run(Walk walk, int seed, bool ahead, int connections = 100) {
        const QString requests = WriteFile(folder_.filePath(Text("requests")), {});
        qputenv("NETROVE_TREE", QByteArray::number(seed));
        qputenv("NETROVE_TREE_LOG", QFile::encodeName(requests));
        qputenv("NETROVE_TREE_CONNECTIONS", QByteArray::number(connections));
        std::vector<SmbHost> hosts;
        for (int at = 1; at <= computers_; ++at)
            hosts.push_back({.name = Text("PC%1").arg(at),
                             .workgroup = at % 2 == 0 ? Text("EVEN") : Text("ODD"),
                             .address = Text("127.0.0.%1").arg(at),
                             .port = port_});
        std::vector<std::unique_ptr<NetworkProvider>> providers;
        auto* provider =
            new SmbProvider(Text("LAN"), hosts, QStringLiteral(NETROVE_TREE_HELPER), limits_);
        providers.emplace_back(provider);
        Network network(std::move(providers));
        walk.settings.Troubleshooting = 1;
        TroubleshootingLog log(walk.settings);
        const QString logged = folder_.filePath(Text("log"));
        log.Open(logged);
        ExclusionLists lists;
        lists.ParseNetNodes(walk.settings);
        const auto read = [](FileAccess& files, const QString& path) {
            static_cast<void>(ReadInPieces(files, path));
        };
        NWSearch search({.files = network,
                         .settings = walk.settings,
                         .exclusions = lists,
                         .log = log,
                         .ahead = ahead ? &network : nullptr,
                         .reading = {.reads = [](const QString&) { return true; }, .read = read}});
        search.SetRecurseFolders(walk.recurse);
        search.SearchUpdate = [&](const QString& path) {
            walk.happened += path;
            if (walk.happened.size() == walk.abandonAt)
                search.Abandon();
        };
        search.ItemFound = [&](const QString& path) {
            QByteArray content;
            const auto failure = FailureOf([&] { content = ReadInPieces(network, path); });
            walk.happened += Text("found %1 %2 %3")
                                 .arg(path, QString::number(network.Info(path).length),
                                      failure ? QString::number(failure->Number())
                                              : QString::fromLatin1(content.toHex()));
        };
        search.BeginSearch(Text("*.txt"), std::make_shared<NetResource>(network));
        walk.kept = provider->Pool().IdleProcesses().size();
        log.Close();
        walk.log = ReadFile(logged).split('\n').mid(2).join('\n'); // without the time
        for (const QByteArray& line : ReadFile(requests).split('\n'))
            if (IsEarly(line))
                ++walk.early;
            else
                walk.requests.insert(line);
        return walk;
    }

    /// Runs a walk alone and then ahead, which has to come to the same; gives the latter.
    Walk ExpectSame(const Walk& told, int seed, int connections = 100) {
        const quint16 distant = std::exchange(port_, door_.Port());
        const Walk alone = Run(told, seed, false);
        port_ = distant;
        const Walk ahead = Run(told, seed, true, connections);
        SCOPED_TRACE(seed);
        EXPECT_EQ(alone.happened, ahead.happened) << connections;
        EXPECT_EQ(alone.log, ahead.log) << connections;
        EXPECT_EQ(alone.requests, ahead.requests) << connections;
        return ahead;
    }

    QTemporaryDir folder_;
    SmbLimits limits_{.opening = 0ms}; // so that there are several connections to each computer
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
        const Walk whole = Run({}, seed, false);
        for (int part = 1; part <= 3; ++part) {
            SCOPED_TRACE(seed * 10 + part);
            const Walk told{.abandonAt = whole.happened.size() * part / 4};
            const Walk ahead = Run(told, seed, true);
            const Walk alone = Run(told, seed, false);
            EXPECT_EQ(ahead.happened, alone.happened);
            EXPECT_EQ(ahead.log, alone.log);
            EXPECT_TRUE(std::includes(whole.requests.begin(), whole.requests.end(),
                                      ahead.requests.begin(), ahead.requests.end()));
        }
    }
}

TEST_F(SmbAheadTest, DeadComputersCostOneLimit) {
    const ListeningPort silent(INADDR_ANY);
    port_ = silent.Port();
    computers_ = 50;
    limits_.negotiate = 500ms;
    int passes = 0;
    SetWaitingPass([&] { return ++passes > 0; });
    QElapsedTimer time;
    time.start();
    static_cast<void>(Run({}, 1, true));
    SetWaitingPass({});
    EXPECT_GE(time.elapsed(), 500);
    EXPECT_LT(time.elapsed(), 5 * 500);
    EXPECT_GT(passes, 10) << "the window goes on painting";
}

} // namespace
} // namespace netrove
