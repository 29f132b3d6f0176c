#include "platform/network/OpenNetwork.h"

#include "platform/TempTree.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

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

TEST(OpenNetworkTest, KeepsTheGoodPartsOfABadFile) {
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

TEST(OpenNetworkTest, TakesTheFirstOfTwoNetworksWithOneName) {
    const Opened result("[Good]\nType=folder\nPath=tree\n[GOOD]\nType=folder\nPath=missing\n");
    EXPECT_EQ(result.names, QStringList(QStringLiteral("Good")));
    ASSERT_EQ(result.opened.problems.size(), 1);
    EXPECT_TRUE(result.opened.problems[0].startsWith(QLatin1String("network.ini, line 4: ")));
}

TEST(OpenNetworkTest, ShowsANetworkWhoseFolderIsMissing) {
    const Opened result("[Gone]\nType=folder\nPath=missing\n");
    EXPECT_EQ(result.names, QStringList(QStringLiteral("Gone")));
    EXPECT_EQ(result.opened.problems.size(), 1);
}

} // namespace
} // namespace netrove
