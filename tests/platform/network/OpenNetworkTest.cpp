#include "platform/network/OpenNetwork.h"

#include "platform/TempTree.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace netrove {
namespace {

class OpenNetworkTest : public testing::Test {
private:
    int argumentCount_ = 1;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    QCoreApplication application_{argumentCount_, arguments_}; // knows where its helpers are
};

/// The names at the root of the network that a file with this content opens.
struct Opened {
    explicit Opened(const QByteArray& content) {
        tree.Folder("tree/GROUP/COMPUTER/Share");
        tree.File("network.ini", content);
        opened = OpenNetwork(tree.Path());
        NetEnum::Handle handle = 0;
        if (opened.network->OpenEnum(2, NetEnum::TypeDisk, 0, {}, handle) != NetEnum::NoError)
            return;
        qint32 count = NetEnum::CountAll;
        std::vector<NetRecord> records;
        quint32 size = 1 << 20;
        if (opened.network->EnumResource(handle, count, records, size) == NetEnum::NoError) {
            for (const NetRecord& record : records)
                names += record.lpRemoteName;
        }
        opened.network->CloseEnum(handle);
    }

    TempTree tree;
    OpenedNetwork opened;
    QStringList names;
};

TEST_F(OpenNetworkTest, KeepsTheGoodPartsOfABadFile) {
    constexpr char good[] = "[Good]\nType=folder\nPath=tree\n";
    struct Case {
        const char* before; ///< five lines are given to what is wrong
        int line;
    };
    const Case cases[] = {
        {"nonsense\n\n\n\n\n", 1},
        {"Type=folder\n\n\n\n\n", 1},
        {"[Bad]\n\n\n\n\n", 1},
        {"[Bad]\nType=radio\n\n\n\n", 2},
        {"[Bad]\nType=folder\n\n\n\n", 1},
        {"[a\\b]\nType=folder\nPath=tree\n\n\n", 1},
        {"[]\nType=folder\nPath=tree\n\n\n", 1},
        {"[a|b]\nType=folder\nPath=tree\n\n\n", 1},
    };
    for (const Case& test : cases) {
        const Opened result(QByteArray(test.before) + good);
        EXPECT_EQ(result.names, QStringList(QStringLiteral("Good"))) << test.before;
        ASSERT_EQ(result.opened.problems.size(), 1) << test.before;
        EXPECT_TRUE(result.opened.problems[0].startsWith(
            QStringLiteral("network.ini, line %1: ").arg(test.line)))
            << result.opened.problems[0].toStdString();
        EXPECT_TRUE(result.opened.network->CanEnter(QStringLiteral("\\\\COMPUTER\\Share")));
    }
}

TEST_F(OpenNetworkTest, ReadsComputers) {
    const Opened good("[LAN]\nType=SMB\nfind=no\nComputer1=ATTIC\ncomputer2=\\\\CELLAR|HOME\n"
                      "Computer3=SHED | | [::1]:1445\nComputer4=LOFT||127.0.0.1\n"
                      "Computer5=PORCH||localhost:1445\nComputer6=HALL||[fe80::1]\n");
    EXPECT_TRUE(good.opened.problems.isEmpty())
        << good.opened.problems.join(QLatin1Char('\n')).toStdString();
    NetEnum::Handle handle = 0;
    const NetRecord lan{.dwDisplayType = NetEnum::DisplayNetwork,
                        .lpRemoteName = QStringLiteral("LAN"),
                        .lpProvider = QStringLiteral("LAN")};
    ASSERT_EQ(good.opened.network->OpenEnum(2, NetEnum::TypeDisk, 0, lan, handle),
              NetEnum::NoError);
    qint32 count = NetEnum::CountAll;
    std::vector<NetRecord> groups;
    quint32 size = 1 << 20;
    EXPECT_EQ(good.opened.network->EnumResource(handle, count, groups, size), NetEnum::NoError);
    EXPECT_EQ(count, 2) << "HOME and WORKGROUP";

    for (const char* computer :
         {"", "|HOME", "..", "a/b", "A|B|c|d", "A||host:0", "A||host:65536", "A||host:", "A||:445",
          "A||[::1", "A||[::1]445", "A||::1", "A||[]:445", "A|a\\b"}) {
        const Opened bad(QByteArray("[LAN]\nType=smb\nComputer1=OK\nComputer2=") + computer);
        ASSERT_EQ(bad.opened.problems.size(), 1) << computer;
        EXPECT_TRUE(bad.opened.problems[0].startsWith(QLatin1String("network.ini, line 4: ")))
            << bad.opened.problems[0].toStdString();
        EXPECT_EQ(bad.names, QStringList(QStringLiteral("LAN"))) << computer;
    }
}

TEST_F(OpenNetworkTest, TakesTheLocalAreaNetworkWhereNothingIsNamed) {
    const QStringList lan(QStringLiteral("Microsoft Windows Network"));
    const Opened empty("; nothing yet\n");
    EXPECT_EQ(empty.names, lan);
    EXPECT_EQ(empty.opened.problems.size(), 1);
    const TempTree tree;
    const OpenedNetwork without = OpenNetwork(tree.Path());
    EXPECT_TRUE(without.problems.isEmpty());
    EXPECT_EQ(without.network->ProviderOf(QStringLiteral("ANYONE")), lan[0]);
}

TEST_F(OpenNetworkTest, TakesTheFirstOfTwoNetworksWithOneName) {
    const Opened result("[Good]\nType=folder\nPath=tree\n[GOOD]\nType=folder\nPath=missing\n");
    EXPECT_EQ(result.names, QStringList(QStringLiteral("Good")));
    ASSERT_EQ(result.opened.problems.size(), 1);
    EXPECT_TRUE(result.opened.problems[0].startsWith(QLatin1String("network.ini, line 4: ")));
}

TEST_F(OpenNetworkTest, ShowsANetworkWhoseFolderIsMissing) {
    const Opened result("[Gone]\nType=folder\nPath=missing\n");
    EXPECT_EQ(result.names, QStringList(QStringLiteral("Gone")));
    EXPECT_EQ(result.opened.problems.size(), 1);
}

} // namespace
} // namespace netrove
