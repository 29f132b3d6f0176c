#include "controls/TreeView.h"
#include "gui/WindowTest.h"
#include "runtime/Yield.h"

namespace netrove {
namespace {

/// Over two networks: "Net" with \\S and \\T in WG, "Other" with \\U in HOME.
class StartNode : public WindowTest {
protected:
    void SetUp() override {
        AddFile("\\\\S\\D\\one.mp3");
        AddFile("\\\\T\\D\\one.mp3");
        network.AddBranch({"Other", "HOME", "\\\\U", "\\\\U\\D"});
        network.AddFile(Text("\\\\U\\D\\one.mp3"));
        network.OnCall = [this](const QString& call) {
            calls.append(call);
            waited = waited && window->cursor().shape() == Qt::WaitCursor;
        };
        Open();
    }

    /// Opens the menu with the mouse and picks an item.
    void Input(int index, const char* answer) {
        calls.clear();
        dialogs.Take();
        dialogs.Inputs = QStringList(Text(answer));
        Click("cmdInpNetNode", index == 3 ? Qt::RightButton : Qt::LeftButton);
        Pick("mnuPopUp6", Text("mnuInpNetNode(%1)").arg(index).toLatin1().constData());
        EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
    }

    /// Chooses a node in the browser; gives whether it was marked there as excluded.
    bool Choose(const char* key) {
        bool isMarked = false;
        Browse([&](frmNWDialog& browser) {
            EXPECT_FALSE(Find("cmdStartSearch").isEnabled() || Find("cmdAbandon").isEnabled() ||
                         Find<QAction>("mnuCont").isEnabled());
            auto& tree = FindIn<TreeView>(browser, "tvwNetwork");
            isMarked = tree.ForeColor(Text(key)).isValid();
            tree.SetSelected(Text(key));
            QTest::mouseClick(&FindIn(browser, "cmdOk"), Qt::LeftButton);
        });
        EXPECT_EQ(window->findChildren<frmNWDialog*>().size(), 0);
        EXPECT_TRUE(Find("cmdStartSearch").isEnabled() && Find<QAction>("mnuCont").isEnabled());
        return isMarked;
    }

    QStringList calls;
    bool waited = true; ///< the hourglass was there at every call
};

TEST_F(StartNode, IsFoundByNameOrStays) {
    constexpr int workstation = 0;
    constexpr int workgroup = 1;
    const std::string prompts[] = {
        "input: Input a workstation name: What is the name of the workstation, computer, or "
        "server?",
        "input: Input a workgroup name: What is the name of the workgroup or domain?"};
    const struct {
        int index;
        const char* answer;
        const char* shown;
        const char* box;
    } cases[] = {
        {workstation, " t ", "\\\\T", ""},
        {workstation, "", "\\\\T", ""},
        {workstation, "\\\\S", "\\\\T",
         "|exclamation: Workstation Warning...: Workstation contains an illegal character!"},
        {workstation, "nobody", "\\\\T", "|critical: Workstation Error...: Invalid Workstation!"},
        {workstation, "u", "\\\\U", ""},
        {workgroup, "wg", "WG", ""},
        {workgroup, "A|B", "WG",
         "|exclamation: Workgroup Warning...: Workgroup contains an illegal character!"},
        {workgroup, "none", "WG", "|critical: Workgroup Error...: Invalid workgroup!"},
        {workgroup, "Home", "HOME", ""},
    };
    for (const auto& [index, answer, shown, box] : cases) {
        SCOPED_TRACE(answer);
        Input(index, answer);
        EXPECT_EQ(StartNodeText(), Text(shown));
        EXPECT_EQ(dialogs.TakeWhole(), prompts[index] + box);
        const bool isAsked = !Text(answer).trimmed().isEmpty() && !Text(box).contains(u"illegal");
        EXPECT_EQ(!calls.isEmpty(), isAsked);
    }
    EXPECT_TRUE(waited);
    dialogs.OnInput = [] { throw RunTimeError(ErrorNumber::OutOfMemory); };
    Input(1, "WG");
    EXPECT_EQ(dialogs.Shown.last(), Text("Error in setting Network node: 7\r\nOut of memory"));
    EXPECT_EQ(StartNodeText(), Text("HOME"));
    Input(3, "");
    EXPECT_EQ(StartNodeText(), Text("[Root]"));
    EXPECT_EQ(dialogs.Boxes(), "");

    // It stands for the usual name first, and for those of the other networks too.
    dialogs.OnInput = {};
    network.AddNode(QString(), NetEnum::DisplayNetwork, Text("Microsoft Windows Network"));
    network.AddNode(Text("Microsoft Windows Network"), NetEnum::DisplayDomain, Text("Wg"));
    Input(1, "WG");
    EXPECT_EQ(StartNodeText(), Text("Wg"));
    EXPECT_FALSE(calls.contains(Text("open Net")));
    Input(0, "U");
    EXPECT_EQ(StartNodeText(), Text("\\\\U"));
}

TEST_F(StartNode, IsSearchedAndKeepsWhatWasRead) {
    // Searches \\T; whether that asked it for its shares.
    const auto searchAsks = [this] {
        calls.clear();
        Click("cmdStartSearch");
        EXPECT_EQ(Rows(), Texts({"\\\\T\\D\\one.mp3"}));
        return calls.contains(Text("open \\\\T"));
    };
    for (int round = 0; round < 2; ++round) {
        Input(0, "T");
        EXPECT_TRUE(searchAsks()) << "a new node reads the network anew";
        EXPECT_FALSE(searchAsks());
        Input(0, "nobody");
        EXPECT_FALSE(searchAsks());
    }
}

TEST_F(StartNode, ComesFromTheBrowser) {
    Choose("??Other");
    EXPECT_EQ(StartNodeText(), Text("Other"));
    Click("cmdAbandon");
    EXPECT_TRUE(WhileWaiting()) << "no wait is given up for what was pressed while nothing runs";
    calls.clear();
    Click("cmdStartSearch");
    EXPECT_EQ(Rows(), Texts({"\\\\U\\D\\one.mp3"}));
    EXPECT_FALSE(calls.contains(Text("open ")));
    Browse([](frmNWDialog& browser) { QTest::keyClick(&browser, Qt::Key_Escape); });
    EXPECT_EQ(StartNodeText(), Text("Other"));

    Settings& settings = window->ProgramSettings();
    settings.ExcNetNodes = Texts({"Net|True|Network"});
    EXPECT_TRUE(Choose("??Net"));
    EXPECT_EQ(dialogs.Boxes(), "");
    settings.ExcNetNodes = Texts({"Net"});
    Click("cmdSetSearchStart");
    EXPECT_EQ(dialogs.Take(), "Error in browsing network: 9\r\nSubscript out of range");
    EXPECT_EQ(StartNodeText(), Text("Net"));
    settings.ExcludeNetNodes = false;
    EXPECT_FALSE(Choose("??Net"));
    EXPECT_EQ(dialogs.Boxes(), "") << "the entries weren't read";
}

} // namespace
} // namespace netrove
