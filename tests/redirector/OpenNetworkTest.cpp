#include "redirector/OpenNetwork.h"

#include "fakes/Text.h"
#include "network/NetResource.h"
#include "platform/TempTree.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

/// What a file with this content opens.
struct Opened : OpenedNetwork {
    explicit Opened(const QByteArray& content) {
        tree.Folder("tree/GROUP/COMPUTER/Share");
        tree.File("network.ini", content);
        static_cast<OpenedNetwork&>(*this) = OpenNetwork(tree.Path());
    }

    /// The names below a network, or at the root, joined by "|".
    [[nodiscard]] std::string Names(const char* below = "") const {
        NetResource node(*network);
        node.InitFrom({.dwDisplayType = NetEnum::DisplayNetwork,
                       .lpRemoteName = Text(below),
                       .lpProvider = Text(below)});
        QStringList names;
        for (const auto& child : *node.Children())
            names += child->RemoteName();
        return names.join(u'|').toStdString();
    }

    /// Where the only problem is, as far as the colon.
    [[nodiscard]] std::string Problem() const {
        return problems.size() == 1 ? problems[0].section(u':', 0, 0).toStdString()
                                    : problems.join(u'\n').toStdString();
    }

    TempTree tree;
};

TEST(OpenNetworkTest, KeepsTheGoodPartsOfABadFile) {
    const struct {
        const char* content; ///< with a folder of that name behind it
        const char* problem;
    } cases[] = {
        {"nonsense\n", "network.ini, line 1"},
        {"[Bad]\n", "network.ini, line 1"},
        {"[Bad]\nType=radio\n", "network.ini, line 2"},
        {"[Bad]\nType=folder\n", "network.ini, line 1"},
        {"[a\\b]\nType=folder\nPath=tree\n", "network.ini, line 1"},
        {"[a|b]\nType=folder\nPath=tree\n", "network.ini, line 1"},
        {"[Good]\nType=folder\nPath=tree\n", "network.ini, line 4"},
    };
    for (const auto& [content, problem] : cases) {
        const Opened opened(QByteArray(content) + "[GOOD]\nType=folder\nPath=tree\n");
        EXPECT_EQ(QString::fromStdString(opened.Names()).toUpper(), Text("GOOD")) << content;
        EXPECT_EQ(opened.Problem(), problem) << content;
        EXPECT_TRUE(opened.network->CanEnter(Text("\\\\COMPUTER\\Share")));
    }
    const Opened gone("[Gone]\nType=folder\nPath=missing\n");
    EXPECT_EQ(gone.Names(), "Gone") << "its folder may come";
    EXPECT_EQ(gone.problems.size(), 1);
}

TEST(OpenNetworkTest, ReadsComputers) {
    const Opened good("[LAN]\nType=SMB\nfind=no\nComputer1=ATTIC\ncomputer2=\\\\CELLAR|HOME\n"
                      "Computer3=SHED | | [::1]:1445\nComputer4=LOFT||127.0.0.1\n"
                      "Computer5=PORCH||localhost:1445\nComputer6=HALL||[fe80::1]\n");
    EXPECT_EQ(good.Problem(), "");
    EXPECT_EQ(good.Names("LAN"), "WORKGROUP|HOME");
    const auto shed = good.network->Address(Text("\\\\shed\\Tools\\"));
    EXPECT_TRUE(shed && shed->host == Text("::1") && shed->port == 1445);
    EXPECT_FALSE(good.network->Address(Text("\\\\ATTIC\\Tools")));

    for (const char* computer :
         {"", "|HOME", "..", "a/b", "A|B|c|d", "A||host:0", "A||host:65536", "A||host:", "A||:445",
          "A||[::1", "A||[::1]445", "A||::1", "A||[]:445", "A|a\\b"}) {
        const Opened bad(QByteArray("[LAN]\nType=smb\nComputer1=OK\nComputer2=") + computer);
        EXPECT_EQ(bad.Problem(), "network.ini, line 4") << computer;
        EXPECT_EQ(bad.Names(), "LAN") << computer;
    }
}

TEST(OpenNetworkTest, TakesTheLocalAreaNetworkWhereNothingIsNamed) {
    const Opened empty("; nothing yet\n");
    EXPECT_EQ(empty.Names(), "Microsoft Windows Network");
    EXPECT_EQ(empty.problems.size(), 1);
    const TempTree tree;
    const OpenedNetwork without = OpenNetwork(tree.Path());
    EXPECT_TRUE(without.problems.isEmpty());
    EXPECT_EQ(without.network->ProviderOf(Text("ANYONE")), Text("Microsoft Windows Network"));
}

} // namespace
} // namespace netrove
