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
            waited = waited && window.cursor().shape() == Qt::WaitCursor;
        };
        Open();
    }

    /// Opens the menu with the mouse and picks an item.
    void Input(int index, const char* answer) {
        calls.clear();
        dialogs.Take();
        dialogs.Inputs = QStringList(Text(answer));
        Click("cmdInpNetNode");
        Pick("mnuPopUp6", Text("mnuInpNetNode(%1)").arg(index).toLatin1().constData());
        EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
    }

    static void Choose(frmNWDialog& browser, const char* key) {
        FindIn<TreeView>(browser, "tvwNetwork").SetSelected(Text(key));
        QTest::mouseClick(&FindIn(browser, "cmdOk"), Qt::LeftButton);
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
    Input(3, "");
    EXPECT_EQ(StartNodeText(), Text("[Root]"));
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(StartNode, StandsForTheUsualNameFirst) {
    network.AddNode(QString(), NetEnum::DisplayNetwork, Text("Microsoft Windows Network"));
    network.AddNode(Text("Microsoft Windows Network"), NetEnum::DisplayDomain, Text("Wg"));
    Input(1, "WG");
    EXPECT_EQ(StartNodeText(), Text("Wg"));
    EXPECT_FALSE(calls.contains(Text("open Net")));
    Input(0, "U");
    EXPECT_EQ(StartNodeText(), Text("\\\\U")) << "the other networks stand for it too";
}

TEST_F(StartNode, IsSearchedAndKeepsWhatWasRead) {
    Input(0, "T");
    // Searches \\T; whether that asked it for its shares.
    const auto searchAsks = [this] {
        calls.clear();
        Click("cmdStartSearch");
        EXPECT_EQ(Rows(), Texts({"\\\\T\\D\\one.mp3"}));
        return calls.contains(Text("open \\\\T"));
    };
    EXPECT_TRUE(searchAsks());
    EXPECT_FALSE(searchAsks());
    Input(0, "nobody");
    EXPECT_FALSE(searchAsks());
    Input(0, "T");
    EXPECT_TRUE(searchAsks()) << "a new node reads the network anew";
    Input(3, "");
    Click("cmdStartSearch");
    EXPECT_EQ(Rows().size(), 3);
}

TEST_F(StartNode, ComesFromTheBrowser) {
    const auto expectEnabled = [&](bool enabled) {
        for (const char* name : {"cmdStartSearch", "cmdSetSearchStart", "cmdInpNetNode",
                                 "LstSearchFor", "chkRecurse", "cmdAbandon"})
            EXPECT_EQ(Find(name).isEnabled(), enabled) << name;
        EXPECT_EQ(Find<QAction>("mnuCont").isEnabled(), enabled);
    };
    EXPECT_FALSE(Find("cmdAbandon").isEnabled());
    Browse([&](frmNWDialog& browser) {
        expectEnabled(false);
        Choose(browser, "??Other");
    });
    EXPECT_EQ(StartNodeText(), Text("Other"));
    expectEnabled(true);
    Click("cmdAbandon");
    EXPECT_TRUE(WhileWaiting()) << "no wait is given up for what was pressed while nothing runs";
    calls.clear();
    Click("cmdStartSearch");
    EXPECT_EQ(Rows(), Texts({"\\\\U\\D\\one.mp3"}));
    ExpectCaption("Returned 1 files in ");
    EXPECT_FALSE(Find("cmdAbandon").isEnabled());
    EXPECT_FALSE(calls.contains(Text("open ")));

    Browse([](frmNWDialog& browser) { QTest::keyClick(&browser, Qt::Key_Escape); });
    EXPECT_EQ(StartNodeText(), Text("Other"));
    expectEnabled(true);
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(StartNode, BrowserSeesWhatIsExcluded) {
    bool isMarked = false;
    const auto choose = [&](frmNWDialog& browser) {
        isMarked = FindIn<TreeView>(browser, "tvwNetwork").ForeColor(Text("??Net")).isValid();
        Choose(browser, "??Net");
    };
    window.ProgramSettings().ExcNetNodes = Texts({"Net|True|Network"});
    Browse(choose);
    EXPECT_TRUE(isMarked);
    window.ProgramSettings().ExcNetNodes = Texts({"Net"});
    Click("cmdSetSearchStart");
    EXPECT_EQ(dialogs.Boxes(), "Error in browsing network: 9\r\nSubscript out of range");
    EXPECT_EQ(StartNodeText(), Text("Net"));
    EXPECT_TRUE(Find("cmdStartSearch").isEnabled());
    window.ProgramSettings().ExcludeNetNodes = false;
    Browse(choose);
    EXPECT_EQ(dialogs.Shown.size(), 1) << "the entries weren't read";
}

TEST_F(StartNode, FailuresEndInABox) {
    Input(0, "T");
    dialogs.OnInput = [] { throw RunTimeError(ErrorNumber::OutOfMemory); };
    Input(1, "WG");
    EXPECT_EQ(dialogs.Shown.last(), Text("Error in setting Network node: 7\r\nOut of memory"));
    EXPECT_EQ(StartNodeText(), Text("\\\\T"));
    dialogs.OnInput = {};
    network.OnCall = [](const QString& call) {
        if (call.startsWith(Text("workgroup ")))
            throw RunTimeError(ErrorNumber::DeviceIOError);
    };
    Input(0, "S");
    EXPECT_EQ(dialogs.Shown.last(), Text("Workstation Error...: Invalid Workstation!"));
    EXPECT_EQ(StartNodeText(), Text("\\\\T"));
}

TEST_F(StartNode, MenusOpenUnderTheMouse) {
    RightClick("cmdInpNetNode");
    Pick("mnuPopUp6", "mnuInpNetNode(3)");

    const auto& input = Find<QComboBox>("LstSearchFor");
    Click("imgFiles(0)");
    EXPECT_FALSE(Find("mnuPopUp5").isVisible());
    auto& picture = Find("imgFiles(0)");
    QTest::mouseClick(&picture, Qt::RightButton, Qt::NoModifier, QPoint(3, 4));
    EXPECT_EQ(Find("mnuPopUp5").pos(), picture.mapToGlobal(QPoint(3, 4)));
    Pick("mnuPopUp5", "mnuFiles(3)");
    EXPECT_EQ(input.currentText(), Text("*.jpg,*.jpeg,*.gif,*.tiff,*.bmp,*.pcx,*.psp"));
    EXPECT_EQ(input.count(), 0);
    EXPECT_EQ(Caption(), Text("---"));
    EXPECT_EQ(dialogs.Boxes(), "");

    window.ProgramSettings().AutoAsterisks = false;
    dialogs.OnMessage = [&] { EXPECT_FALSE(Find("mnuPopUp5").isVisible()); };
    RightClick("imgFiles(0)");
    EXPECT_TRUE(Text(dialogs.TakeWhole().c_str())
                    .startsWith(Text("information: Auto-Asterisks is turned off: The option "
                                     "'Auto-Enclose Search Parameters with Asterisks' is currently "
                                     "set \r\nto 'No'. ")));
    Pick("mnuPopUp5", "mnuFiles(7)");
    EXPECT_EQ(input.currentText(), Text("*.*"));
}

TEST_F(StartNode, SearchTextIsSelectedWhenItGetsTheFocus) {
    auto& input = *Find<QComboBox>("LstSearchFor").lineEdit();
    Find("chkRecurse").setFocus();
    for (const char* selected : {"*.mp3", ""}) { // at the second click it has the focus already
        input.deselect();
        QTest::mouseClick(&input, Qt::LeftButton, Qt::NoModifier, QPoint(12, 8));
        QCoreApplication::processEvents();
        EXPECT_EQ(input.selectedText(), Text(selected));
    }
    Find("chkRecurse").setFocus();
    Find("LstSearchFor").setFocus();
    EXPECT_EQ(input.selectedText(), Text("*.mp3"));
    EXPECT_EQ(input.selectionStart(), 0);
    input.deselect();
    Find<QMenu>("mnuPopUp6").popup(QPoint());
    Find<QMenu>("mnuPopUp6").close();
    Activate();
    EXPECT_TRUE(input.hasFocus());
    EXPECT_EQ(input.selectedText(), QString());
}

} // namespace
} // namespace netrove
