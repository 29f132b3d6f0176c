#include "platform/network/Network.h"
#include "platform/network/SmbProvider.h"
#include "runtime/Yield.h"
#include "search/NWSearch.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <set>
#include <string>
#include <thread>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// A port at every address of this machine that takes connections and, if it is to, answers the
/// question whether it speaks SMB, after a while.
class Doorkeeper {
public:
    explicit Doorkeeper(bool answers, std::chrono::milliseconds pause = 0ms) : pause_(pause) {
        listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        socklen_t size = sizeof address;
        auto* generic = reinterpret_cast<sockaddr*>(&address);
        if (bind(listener_, generic, size) == 0 && listen(listener_, 128) == 0 &&
            getsockname(listener_, generic, &size) == 0)
            port_ = ntohs(address.sin_port);
        if (answers)
            thread_ = std::thread([this] { Run(); });
    }
    Doorkeeper(const Doorkeeper&) = delete;
    Doorkeeper& operator=(const Doorkeeper&) = delete;
    ~Doorkeeper() {
        isEnding_ = true;
        if (thread_.joinable())
            thread_.join();
        close(listener_);
    }

    [[nodiscard]] quint16 Port() const { return port_; }

private:
    void Run() const {
        while (!isEnding_) {
            pollfd waiting = {.fd = listener_, .events = POLLIN, .revents = 0};
            if (poll(&waiting, 1, 10) <= 0)
                continue;
            const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
            std::array<char, 1024> question{};
            const QByteArray answer = QByteArray::fromHex("00000004fe534d42");
            if (recv(client, question.data(), question.size(), 0) > 0) {
                std::this_thread::sleep_for(pause_);
                send(client, answer.constData(), 8, MSG_NOSIGNAL);
            }
            close(client);
        }
    }

    const std::chrono::milliseconds pause_;
    int listener_ = -1;
    quint16 port_ = 0;
    std::atomic<bool> isEnding_ = false;
    std::thread thread_;
};

/// What a search is told, and what came of it.
struct Walk {
    Settings settings = {};
    bool recurse = true;
    int abandonAt = -1; ///< the update with this number is the last

    std::vector<std::string> happened = {}; ///< updates and matches
    std::string log = {};
    std::set<std::string> requests = {};
    std::size_t early = 0; ///< connections that were only opened
    std::size_t kept = 0;  ///< connections after the search
};

/// Whether it only opens a connection: the walk itself never asks for the top of a share so.
bool IsEarly(const QString& request) {
    return request.startsWith(QString::number(static_cast<int>(SmbRequest::Kind::Stat))) &&
           request.endsWith(u' ');
}

class SmbAheadTest : public testing::Test {
protected:
    void TearDown() override {
        unsetenv("NETROVE_TREE");
        unsetenv("NETROVE_TREE_LOG");
        unsetenv("NETROVE_TREE_CONNECTIONS");
    }

    std::unique_ptr<Network> LocalNetwork(quint16 port, int computers,
                                          const SmbLimits& limits = {}) {
        std::vector<SmbHost> hosts;
        for (int at = 1; at <= computers; ++at)
            hosts.push_back(
                {.name = QStringLiteral("PC%1").arg(at),
                 .workgroup = at % 2 == 0 ? QStringLiteral("EVEN") : QStringLiteral("ODD"),
                 .address = QStringLiteral("127.0.0.%1").arg(at),
                 .port = port});
        std::vector<std::unique_ptr<NetworkProvider>> providers;
        auto provider = std::make_unique<SmbProvider>(QStringLiteral("LAN"), hosts,
                                                      QStringLiteral(NETROVE_TREE_HELPER), limits);
        pool_ = &provider->Pool();
        providers.push_back(std::move(provider));
        return std::make_unique<Network>(std::move(providers));
    }

    /// The computers take so many connections in all.
    void Run(Walk& walk, int seed, bool ahead, int connections = 100) {
        QFile requests(folder_.filePath(QStringLiteral("requests")));
        ASSERT_TRUE(requests.open(QIODevice::WriteOnly | QIODevice::Truncate));
        qputenv("NETROVE_TREE", QByteArray::number(seed));
        qputenv("NETROVE_TREE_LOG", QFile::encodeName(requests.fileName()));
        qputenv("NETROVE_TREE_CONNECTIONS", QByteArray::number(connections));
        SmbLimits limits;
        limits.opening = 0ms; // so that there are several connections to each computer
        const auto network = LocalNetwork(port_, computers_, limits);
        walk.settings.Troubleshooting = 1;
        TroubleshootingLog log(walk.settings);
        log.Open(folder_.filePath(QStringLiteral("log")));
        ExclusionLists lists;
        lists.ParseNetNodes(walk.settings);
        NWSearch search({.files = *network,
                         .settings = walk.settings,
                         .exclusions = lists,
                         .log = log,
                         .ahead = ahead ? network.get() : nullptr});
        search.SetRecurseFolders(walk.recurse);
        search.SearchUpdate = [&](const QString& path) {
            walk.happened.push_back(path.toStdString());
            if (static_cast<int>(walk.happened.size()) == walk.abandonAt)
                search.Abandon();
        };
        search.ItemFound = [&](const QString& path) {
            const qint64 length = network->Length(path);
            walk.happened.push_back("found " + path.toStdString() + ' ' + std::to_string(length));
        };
        search.BeginSearch(QStringLiteral("*.txt"), std::make_shared<NetResource>(*network));
        walk.kept = pool_->IdleProcesses().size();
        log.Close();
        walk.log = Content("log").section(QLatin1Char('\n'), 2).toStdString(); // without the time
        for (const QString& line : Content("requests").split(QLatin1Char('\n')))
            if (IsEarly(line))
                ++walk.early;
            else
                walk.requests.insert(line.toStdString());
    }

    QString Content(const char* name) const {
        QFile file(folder_.filePath(QLatin1String(name)));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QTemporaryDir folder_;
    const SmbPool* pool_ = nullptr;
    Doorkeeper door_{true};
    quint16 port_ = door_.Port();
    int computers_ = 3;
};

TEST_F(SmbAheadTest, ChangesNothingButWhenRequestsAreSent) {
    const auto with = [](const char* exclusion, bool admin, bool recurse) {
        Walk walk;
        walk.settings.ExcNetNodes = {QLatin1String(exclusion)};
        walk.settings.IncludeAdminShares = admin;
        walk.recurse = recurse;
        return walk;
    };
    const std::vector<Walk> walks{
        with("Temp|True|Folder", false, true),  with("D1|True|Folder", false, true),
        with("d0\\d1|True|Folder", true, true), with("C$|True|Folder", true, true),
        with("Temp|True|Folder", true, false),  with("PC2|True|Workstation", false, true),
        with("ODD|True|Workgroup", false, true)};
    for (int seed = 1; seed <= 7; ++seed) {
        Walk alone = walks[static_cast<std::size_t>(seed) % walks.size()];
        Walk ahead = alone;
        Run(alone, seed, false);
        Run(ahead, seed, true);
        EXPECT_GT(alone.happened.size(), 20U) << seed;
        EXPECT_EQ(alone.happened, ahead.happened) << seed;
        EXPECT_EQ(alone.log, ahead.log) << seed;
        EXPECT_EQ(alone.requests, ahead.requests) << seed;
    }
}

TEST_F(SmbAheadTest, ComputersThatTakeFewConnectionsGiveTheSameAnswers) {
    for (int seed = 10; seed < 13; ++seed) {
        Walk alone;
        alone.settings.ExcNetNodes = {QStringLiteral("PC2|True|Workstation"),
                                      QStringLiteral("PC3|True|Workstation")};
        Walk ahead = alone;
        Run(alone, seed, false);
        Run(ahead, seed, true, 2);
        EXPECT_EQ(alone.happened, ahead.happened) << seed;
        EXPECT_EQ(alone.requests, ahead.requests) << seed;
    }
}

TEST_F(SmbAheadTest, ADistantComputerGetsConnectionsBeforeThereIsWorkForThem) {
    const Doorkeeper distant(true, 20ms);
    computers_ = 1;
    std::size_t early = 0;
    for (const int seed : {30, 31}) // a share whose top can't be read, and one that can
        for (const int connections : {100, 2, 1}) {
            Walk alone;
            Walk ahead;
            port_ = door_.Port();
            Run(alone, seed, false);
            port_ = distant.Port();
            Run(ahead, seed, true, connections);
            early += ahead.early;
            EXPECT_LE(ahead.kept, SmbLimits().keptPerServer);
            EXPECT_EQ(alone.happened, ahead.happened) << seed << ' ' << connections;
            EXPECT_EQ(alone.requests, ahead.requests) << seed << ' ' << connections;
        }
    EXPECT_GT(early, 0U);
}

TEST_F(SmbAheadTest, AnAbandonedWalkEndsAsItWouldAndAsksForNothingElse) {
    for (int seed = 20; seed < 24; ++seed) {
        Walk whole;
        Run(whole, seed, false);
        for (int part = 1; part <= 3; ++part) {
            Walk ahead;
            ahead.abandonAt = static_cast<int>(whole.happened.size()) * part / 4;
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
    const Doorkeeper silent(false);
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
    search.BeginSearch(QStringLiteral("*"), std::make_shared<NetResource>(*network));
    SetWaitingPass({});
    EXPECT_GE(time.elapsed(), 500);
    EXPECT_LT(time.elapsed(), 5 * 500);
    EXPECT_GT(passes, 10) << "the window goes on painting";
}

} // namespace
} // namespace netrove
