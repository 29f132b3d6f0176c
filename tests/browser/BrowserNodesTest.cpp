#include "OpenBrowser.h"

namespace netrove {
namespace {

class BrowserNodes : public OpenBrowser {
protected:
    void Choose(const char* name) {
        Tree().SetSelected(Text("??") + Text(name));
        Find<QAction>("mnuExcNode").trigger();
    }
};

TEST_F(BrowserNodes, SelectGivesTheResourceOfTheNearestNodeThatIsThere) {
    Open();
    Click("cmdOk");
    ASSERT_TRUE(dialog->Result());
    EXPECT_EQ(dialog->Result()->RemoteName(), QString()) << "nothing selected";
    for (const auto& [node, name] : TextPairs{{"\\\\S\\E", "\\\\S\\E"}, {"Lone_FAKE", "Lone"}}) {
        Open();
        ExpandAll({"Net", "WG", "\\\\S"});
        calls.clear();
        Tree().SetSelected(Text("??") + Text(node));
        Press(Qt::Key_Return);
        EXPECT_FALSE(dialog->isVisible() || dialog->Cancelled());
        ASSERT_TRUE(dialog->Result());
        EXPECT_EQ(dialog->Result()->RemoteName(), Text(name));
        EXPECT_FALSE(calls.contains(Text("open \\\\S\\E"))) << "that has been read";
    }
}

TEST_F(BrowserNodes, MarksWhatTheListsExclude) {
    network.AddNode(Text("\\\\S"), NetEnum::DisplayDirectory, Text("\\\\S\\WG"));
    network.AddNode(Text("Net"), NetEnum::DisplayDomain, Text("s"));
    settings.ExcNetNodes = Texts({"net|True|Network", "wg|True|Workgroup", "s|True|Workstation",
                                  "d|True|Folder", "T|False|Workstation", "P|True|Folder"});
    Open();
    ExpandAll({"Net", "WG", "\\\\S"});
    EXPECT_EQ(Children("_ROOT"), "*Net+ Lone+");
    EXPECT_EQ(Children("Net"), "*WG+ s+") << "a workstation's entry is no workgroup's";
    EXPECT_EQ(Children("WG"), "*S+ T+");
    EXPECT_EQ(Children("\\\\S"), "*D+ E+ WG+ P") << "printers are never marked";

    settings.ExcludeNetNodes = false;
    exclusions.UseExcNetworks = true;
    Open();
    EXPECT_EQ(Children("_ROOT"), "Net+ Lone+");
    settings.ExcludeNetNodes = true;
    Show();
    exclusions.UseExcNetworks = false;
    ASSERT_TRUE(QTest::qWaitFor([this] { return IsEnabled("cmdOk"); }));
    EXPECT_EQ(Children("_ROOT"), "Net+ Lone+") << "each list has its flag";
}

TEST_F(BrowserNodes, ExcludesByNameAndType) {
    settings.ExcNetNodes = Texts({"Temp|True|Folder"});
    Open();
    ExpandAll({"Net", "WG", "\\\\S"});
    for (const char* name : {"Net", "WG", "\\\\S", "\\\\S\\D"})
        Choose(name);
    EXPECT_EQ(settings.ExcNetNodes,
              Texts({"Temp|True|Folder", "Net|True|Network", "WG|True|Workgroup",
                     "S|True|Workstation", "D|True|Folder"}));
    EXPECT_EQ(Children("_ROOT"), "*Net+ Lone+");
    EXPECT_EQ(Children("\\\\S"), "*D+ E+ P");
    EXPECT_EQ(dialogs.Boxes(), "");
    EXPECT_TRUE(exclusions.ExcNetworks.isEmpty()) << "the lists wait for the next parse";

    Choose("\\\\S\\D");
    Click("cmdCancel");
    EXPECT_EQ(settings.ExcNetNodes.count(Text("D|True|Folder")), 2) << "nothing is taken back";
}

TEST_F(BrowserNodes, SaysWhatItCanNotExclude) {
    Open();
    ExpandAll({"Net", "WG", "\\\\S"});
    Find<QAction>("mnuExcNode").trigger();
    settings.ExcNetNodes.clear();
    Choose("_ROOT");
    Choose("\\\\S\\P");
    settings.ExcludeNetNodes = false;
    Choose("Net");
    EXPECT_EQ(
        dialogs.WholeBoxes(),
        "critical: Exclude Network Node <root>: Can not exclude the root node.|exclamation: "
        "Exclude Network Node "
        "<printer>: Can not exclude this network node. This probably\r\nmeans that the network "
        "node type is already excluded\r\nfrom the search.|exclamation: Exclude Network Node: The "
        "node "
        "exclusion option is currently off.\r\nTo activate it go to Tools>Options>Search");
    EXPECT_EQ(settings.ExcNetNodes, QStringList());
    EXPECT_EQ(Children("_ROOT"), "Net+ Lone+");
}

} // namespace
} // namespace netrove
