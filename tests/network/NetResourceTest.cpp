#include "network/NetResource.h"

#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "runtime/ExpectRaised.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

constexpr auto ProviderName = "Microsoft Windows Network";

QStringList Names(const NetResources& nodes) {
    QStringList names;
    for (const auto& node : nodes)
        names.append(node->RemoteName());
    return names;
}

/// One provider, one workgroup, two servers; the first has a share and a printer.
class SmallNetwork : public testing::Test {
protected:
    void SetUp() override {
        network.AddBranch({ProviderName, "HOME", "\\\\MEDIA", "\\\\MEDIA\\MUSIC"});
        network.AddBranch({ProviderName, "HOME", "\\\\ATTIC"});
        network.AddPrinter(Text("\\\\MEDIA"), Text("\\\\MEDIA\\LASER"));
        network.AddPrinter(Text("\\\\MEDIA"), Text("\\\\MEDIA\\QUEUES"), NetEnum::DisplayServer);
    }

    MemoryNetwork network;
    NetResource root{network};
};

TEST_F(SmallNetwork, ChildrenAreSharesThenPrintersAndAreReadOnce) {
    const auto provider = root.Children()->Item(Text("microsoft windows NETWORK"));
    ASSERT_TRUE(provider);
    EXPECT_EQ(provider->ShortName(), Text(ProviderName));
    const auto media = provider->Children()->Item(1)->Children()->Item(Text("\\\\media"));
    ASSERT_TRUE(media);
    EXPECT_EQ(Names(*media->Children()),
              (QStringList{Text("\\\\MEDIA\\MUSIC"), Text("\\\\MEDIA\\LASER")}));

    const auto printer = media->Children()->Item(2);
    EXPECT_EQ(printer->ResourceType(), ResourceType::Printer);
    EXPECT_EQ(printer->ResourceTypeName(), Text("Printer"));
    EXPECT_EQ(printer->ShortName(), Text("LASER"));

    network.OnCall = [](const QString& call) { FAIL() << call.toStdString(); };
    EXPECT_EQ(media->Children()->Count(), 2);
}

TEST_F(SmallNetwork, FailedOpenIsTriedAgainAndABrokenListKeepsWhatCame) {
    network.Unlistable.insert(QString());
    EXPECT_EQ(root.Children()->Count(), 0);
    network.Unlistable.clear();
    network.BreakOff = true;
    EXPECT_EQ(root.Children()->Count(), 1);
    network.BreakOff = false;
    network.AddNode(Text("HOME"), NetEnum::DisplayServer, Text("\\\\media"));
    NetResource home{network};
    home.InitFrom({.lpRemoteName = Text("HOME")});
    ExpectRaised(ErrorNumber::KeyNotUnique, [&] { return home.Children(); });
    EXPECT_EQ(network.OpenHandles, 0);
}

TEST_F(SmallNetwork, FindNWObjectsVisitsServersButNotTheirShares) {
    QStringList visited;
    QStringList found;
    root.SearchProgress = [&](const auto& node) { visited.append(node->RemoteName()); };
    root.ResourceFound = [&](const auto& node) { found.append(node->RemoteName()); };
    const QStringList servers{Text("\\\\MEDIA"), Text("\\\\ATTIC")};
    EXPECT_EQ(Names(*root.FindNWObjects(ResourceType::Server)), servers);
    EXPECT_EQ(found, servers);
    EXPECT_EQ(visited, (QStringList{Text(ProviderName), Text("HOME")} + servers));
    EXPECT_EQ(root.FindNWObjects(ResourceType::Share)->Count(), 0);
}

TEST_F(SmallNetwork, ChildListGrowsWhileItIsRead) {
    for (int number = 0; number < 50; ++number)
        network.AddNode(Text("\\\\ATTIC"), NetEnum::DisplayShare,
                        Text("\\\\ATTIC\\SHARE%1").arg(number));
    root.InitFrom({.lpRemoteName = Text("\\\\ATTIC")});
    EXPECT_EQ(root.Children()->Count(), 50);
    EXPECT_GT(network.LargestBuffer, 1024U) << "it grows to the size asked for";
    EXPECT_EQ(network.OpenHandles, 0);
}

TEST_F(SmallNetwork, RecordTextsAreCut) {
    root.InitFrom({.lpRemoteName = QString(300, QLatin1Char('x')),
                   .lpComment = Text("short") + QChar(u'\0') + Text("hidden")});
    EXPECT_EQ(root.RemoteName().size(), 255);
    EXPECT_EQ(root.Comment(), Text("short"));
}

} // namespace
} // namespace netrove
