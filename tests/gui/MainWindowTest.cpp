#include "about/frmAbout.h"
#include "fakes/Files.h"
#include "gui/WindowTest.h"
#include "online/frmUpdate.h"
#include "runtime/Yield.h"

#include <QWindow>

namespace netrove {
namespace {

/// Over \\S with the share D and \\T with the share E.
class Window : public WindowTest {
protected:
    void SetUp() override {
        AddFile("\\\\S\\D\\one.mp3", 1500000);
        AddFile("\\\\S\\D\\SUB\\two.MP3", 2);
        AddFile("\\\\S\\D\\readme", 3);
        AddFile("\\\\T\\E\\three.mp3", 4);
        Open();
    }
};

TEST_F(Window, SearchFillsRowsAndSummary) {
    auto& input = Find<QComboBox>("LstSearchFor");
    EXPECT_EQ(Bar().Text(1) + StartNodeText(), Text("Idle[Root]"));
    EXPECT_TRUE(input.lineEdit()->hasFocus());
    EXPECT_EQ(input.lineEdit()->selectedText(), Text("*.mp3"));
    Search(" *.MP3 , ,");
    EXPECT_EQ(Rows(),
              Texts({"\\\\S\\D\\one.mp3", "\\\\S\\D\\SUB\\two.MP3", "\\\\T\\E\\three.mp3"}));
    QStringList columns;
    for (int column = 2; column <= 11; ++column)
        columns.append(Results().SubItem(1, column));
    EXPECT_EQ(columns.join(u'|'),
              Text("1.4305|02/03/20|A| | | |0001.4305000000|20200203040506||MP3"));
    ExpectCaption("Returned 3 files in ");
    EXPECT_TRUE(Caption().endsWith(Text(". (Max return is set to 5000)")));
    for (const char* text : {"one*", "*.mp3", "one*"})
        Search(text);
    EXPECT_EQ(input.itemText(0) + input.itemText(1) + input.itemText(2), Text("*.mp3one**.MP3"));
    EXPECT_EQ(input.count(), 3);
    EXPECT_EQ(Rows().size(), 1);
    EXPECT_EQ(input.currentText(), Text("one*"));
}

TEST_F(Window, OptionsOfASearch) {
    Settings& settings = window->ProgramSettings();
    const auto found = [this](const char* text) {
        Search(text);
        return Rows().size();
    };
    settings.MaxReturnFiles = 1;
    settings.IncludeMP3Info = true;
    EXPECT_EQ(found("*.mp3"), 1);
    EXPECT_EQ(Results().SubItem(1, 5) + Results().SubItem(1, 7), Text("00:00:000"));
    settings.MaxReturnFiles = 5000;
    settings.ExcNetNodes = Texts({"T|True|Workstation"});
    EXPECT_EQ(found("*.mp3"), 2);
    QTest::keyClick(&Find("chkRecurse"), Qt::Key_Space);
    EXPECT_EQ(found("*.mp3"), 1);
    settings.ExcludeNetNodes = false;
    EXPECT_EQ(found("*.mp3"), 2);
    settings.AutoAsterisks = false;
    EXPECT_EQ(found("one,read"), 0);
}

TEST_F(Window, ARunningSearchGuardsItsInputAndCanBeAborted) {
    const WId id = window->winId();
    const auto expectEnabled = [&](bool enabled) {
        for (const char* name : {"cmdSetSearchStart", "cmdInpNetNode", "LstSearchFor", "chkRecurse",
                                 "cmdStartSearch", "imgFiles(0)"})
            EXPECT_EQ(Find(name).isEnabled(), enabled) << name;
        for (const char* name : {"mnuCont", "mnuOpts"})
            EXPECT_EQ(Find<QAction>(name).isEnabled(), enabled) << name;
        EXPECT_NE(Find("cmdAbandon").isEnabled(), enabled);
        EXPECT_EQ(Find("imgFiles(0)").isVisible(), enabled);
        EXPECT_NE(Find("imgFiles(1)").isVisible(), enabled);
    };
    When("list \\\\T\\E\\", [&] {
        for (const char* skin : {"mnuSkin(4)", "mnuSkin(0)"})
            Trigger(skin);
        expectEnabled(false);
        EXPECT_TRUE(Find("cmdAbandon").hasFocus());
        EXPECT_EQ(Bar().Text(1) + Bar().Text(2), Text("Searching...\\\\T\\E\\"));
        EXPECT_EQ(Caption(), Text("Search in progress. 2 files found."));
        Click("imgFiles(1)", Qt::RightButton);
        EXPECT_FALSE(Find("mnuPopUp5").isVisible());
        QTest::keyClick(window.get(), Qt::Key_Return);
    });
    Search("*.mp3");
    EXPECT_EQ(Rows().size(), 2);
    ExpectCaption("Aborted, but returned 2 files in ");
    expectEnabled(true);
    EXPECT_EQ(Bar().Text(2), QString());
    EXPECT_EQ(window->winId(), id) << "across other skins";
}

TEST_F(Window, OneJobRunsAtATime) {
    int walks = 0;
    network.OnCall = [&](const QString& call) { walks += call == Text("enter \\\\S\\D") ? 1 : 0; };
    // All of it comes in before the search has switched anything off.
    const auto startWith = [&](const std::function<void()>& second) {
        walks = 0;
        QMetaObject::invokeMethod(
            window.get(), [&] { Click("cmdStartSearch"); }, Qt::QueuedConnection);
        QMetaObject::invokeMethod(window.get(), second, Qt::QueuedConnection);
        SetYieldAlways(true);
        QCoreApplication::processEvents();
        SetYieldAlways(false);
        EXPECT_TRUE(Find("cmdStartSearch").isEnabled());
    };
    for (const char* button : {"cmdStartSearch", "cmdSetSearchStart", "cmdClearLst"}) {
        startWith([&] { Click(button); });
        EXPECT_EQ(walks, 1) << button;
        EXPECT_EQ(Rows().size(), 3) << button;
    }
    for (const char* item : {"mnuLoadResFile", "mnuSaveResFile", "mnuInpNetNode(3)"})
        startWith([&] { Trigger(item); });
    EXPECT_EQ(dialogs.Boxes(), "") << "nothing was asked";

    startWith([&] { window->close(); });
    EXPECT_EQ(dialogs.TakeWhole(), std::string("exclamation: ") + SearchInProgress);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(walks, 0) << "who closes wants no search";
    ExpectCaption("Returned 0 files in ");
    EXPECT_TRUE(window->close());
}

TEST_F(Window, AWaitForTheNetworkCanBeAborted) {
    Find("chkRecurse").setFocus();
    When("list \\\\S\\D\\SUB\\", [&] {
        // The row that has come is shown, and the button answers, though nobody yields.
        EXPECT_EQ(Results().model()->rowCount(), 0);
        QElapsedTimer clock;
        clock.start();
        while (Results().model()->rowCount() == 0 && WhileWaiting() && clock.elapsed() < 5000) {
        }
        QMetaObject::invokeMethod(
            window.get(),
            [&] { QTest::keyClick(window->windowHandle(), Qt::Key_A, Qt::AltModifier); },
            Qt::QueuedConnection);
        while (WhileWaiting() && clock.elapsed() < 5000) {
        }
        EXPECT_LT(clock.elapsed(), 5000);
    });
    Search("*.mp3");
    EXPECT_EQ(Rows().size(), 1);
    ExpectCaption("Aborted, but returned 1 files in ");
    EXPECT_TRUE(WhileWaiting()) << "the next wait isn't given up";
}

TEST_F(Window, FailuresEndInABox) {
    When("open ", [] { throw RunTimeError(ErrorNumber::DeviceIOError); });
    Search("*.mp3");
    ExpectCaption("Returned 0 files in 0 seconds.");
    EXPECT_TRUE(Find("cmdStartSearch").isEnabled());
    Find("chkRecurse").setFocus();
    Search(" , ");
    EXPECT_EQ(dialogs.WholeBoxes(), "critical: Error while searching: Error while processing "
                                    "request.\r\n57\r\nDevice I/O error|"
                                    "information: Null search input: No search parameters!");
    EXPECT_TRUE(Find<QComboBox>("LstSearchFor").lineEdit()->hasFocus());
}

TEST_F(WindowTest, NoHandlerRunsDuringTheStart) {
    bool cameIn = false;
    QTimer::singleShot(0, window.get(), [&] { cameIn = true; });
    SetYieldAlways(true);
    window->Form_Load();
    SetYieldAlways(false);
    EXPECT_FALSE(cameIn);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cameIn; })) << "yields are back, and the event waits";
}

TEST_F(WindowTest, OpensWithAndOutlivesSettingsThatAreNone) {
    const QString path = IniFileName(folder.path());
    ProfileFile(path).WriteIni(Text("Skin"), Text("Index"), Text("2147483648"));
    const QByteArray before = ReadFile(path);
    Open();
    EXPECT_EQ(dialogs.Boxes(), "frmNetrove.Form_Load Error: 6\r\nOverflow\r\nNot all settings were "
                               "loaded. Their file is kept as " +
                                   path.toStdString() + ".copy-1.");
    EXPECT_EQ(ReadFile(path + Text(".copy-1")), before) << "already";
    EXPECT_FALSE(QFile::exists(folder.filePath(Text("Netrove.log")))) << "the start stopped there";
    EXPECT_EQ(Bar().geometry().bottom(), window->centralWidget()->rect().bottom());
    Search("*.mp3");
    ExpectCaption("Returned 0 files in ");
    EXPECT_TRUE(window->close());
    EXPECT_EQ(ProfileFile(path).ReadIni(Text("Skin"), Text("Index"), QString()), Text("0"));

    QFile::remove(path);
    ASSERT_TRUE(QDir().mkdir(path));
    Make();
    Open();
    EXPECT_TRUE(window->close());
    EXPECT_EQ(dialogs.Shown.size(), 1) << "neither a missing file nor a failed write is told";
}

TEST_F(Window, EnterInAListStartsNoSearch) {
    Results().setFocus();
    QTest::keyClick(Results().focusWidget(), Qt::Key_Down);
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Rows().size(), 0);
    Find("chkRecurse").setFocus();
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Rows().size(), 3);
}

TEST_F(Window, OpensHelpAndTheWebSite) {
    QTest::keyClick(&Find("chkRecurse"), Qt::Key_F1);
    Click("HyperLbl", Qt::RightButton);
    Click("HyperLbl");
    Trigger("mnuViewTrLog");
    InDialog<frmAbout>("mnuAbout1", [](frmAbout& about) {
        QTest::mouseClick(&FindIn(about, "lblCopyright"), Qt::LeftButton);
        QTest::keyClick(&about, Qt::Key_F1);
        UseDialog<frmUpdate>(
            [&] { QTest::mouseClick(&FindIn(about, "lblVersionUpdate"), Qt::LeftButton); },
            [](frmUpdate& update) { update.close(); });
        about.close();
    });
    EXPECT_TRUE(shell.Opened.value(0).startsWith(folder.path()));
    EXPECT_TRUE(shell.Opened.value(0).endsWith(Text("Netrove.html")));
    EXPECT_EQ(shell.Opened.mid(1),
              (QStringList{Text("https://www.example.com/"), folder.filePath(Text("Netrove.log")),
                           Text("mailto:netrove@example.com"), shell.Opened[0]}));
    EXPECT_TRUE(QFile::exists(shell.Opened[2]));
    shell.Result = Shell::FileNotFound;
    Trigger("mnuTBS");
    EXPECT_EQ(dialogs.Boxes(), "Shell execute failed...: https://www.example.com/\r\nError: File "
                               "not found.  Couldn't Execute!");
}

TEST_F(Window, FollowsItsSize) {
    const auto& tabs = Find<QTabWidget>("SSTab1");
    for (const QSize size : {QSize(1200, 700), QSize(740, 470), QSize(100, 100)}) {
        window->resize(size);
        QCoreApplication::processEvents();
        const QRect inner = window->centralWidget()->rect();
        EXPECT_EQ(tabs.size(), inner.size() - QSize(10, 112));
        for (const ListView* list : {&Results(), &Downloads()}) {
            EXPECT_EQ(list->width(), tabs.width() - 8);
            EXPECT_NEAR(list->height(), tabs.height() - 42, 1);
        }
        const QRect caption = Find("RetFileLbl").geometry();
        EXPECT_GT(caption.top(), Results().geometry().bottom());
        EXPECT_LE(caption.bottom(), Find("RetFileLbl").parentWidget()->height());
        EXPECT_EQ(Bar().geometry().bottom(), inner.bottom());
        EXPECT_EQ(Bar().MinWidth(1), 1764);
        EXPECT_EQ(Bar().MinWidth(2), 15 * inner.width() - 45 - 1764 - 529);
        EXPECT_LE(tabs.mapTo(window->centralWidget(), QPoint(0, tabs.height())).y(), Bar().y());
    }
    EXPECT_GE(window->frameGeometry().width(), 11010 / 15);
    EXPECT_GE(window->frameGeometry().height(), 6975 / 15);
}

} // namespace
} // namespace netrove
