#include "controls/Twips.h"
#include "fakes/Files.h"
#include "gui/WindowTest.h"
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
    }

    /// The settings file, which is named after the program: the test.
    [[nodiscard]] QString SettingsPath() const { return IniFileName(folder.path()); }
};

TEST_F(Window, SearchFillsRowsAndSummary) {
    Open();
    EXPECT_EQ(StatusText(1), Text("Idle"));
    EXPECT_EQ(StartNodeText(), Text("[Root]"));
    EXPECT_EQ(Results().BackColor(), QColor(213, 234, 234));
    EXPECT_EQ(Downloads().BackColor(), QColor(255, 255, 191));
    EXPECT_TRUE(Find<QComboBox>("LstSearchFor").lineEdit()->hasFocus());
    EXPECT_EQ(Find<QComboBox>("LstSearchFor").lineEdit()->selectedText(), Text("*.mp3"));
    Search(" *.MP3 , ,");
    EXPECT_EQ(Rows(),
              Texts({"\\\\S\\D\\one.mp3", "\\\\S\\D\\SUB\\two.MP3", "\\\\T\\E\\three.mp3"}));
    QStringList columns;
    for (int column = 2; column <= 11; ++column)
        columns.append(Results().SubItem(1, column));
    EXPECT_EQ(columns.join(u'|'),
              Text("1.4305|02/03/20|A| | | |0001.4305000000|20200203040506||MP3"));
    EXPECT_TRUE(QRegularExpression(
                    Text("^Returned 3 files in \\d+ seconds?\\. \\(Max return is set to 5000\\)$"))
                    .match(Caption())
                    .hasMatch())
        << Caption().toStdString();
    auto& input = Find<QComboBox>("LstSearchFor");
    EXPECT_EQ(input.currentText(), Text("*.MP3"));
    Search("one*");
    Search("*.mp3");
    Search("one*");
    EXPECT_EQ(input.itemText(0) + input.itemText(1) + input.itemText(2), Text("*.mp3one**.MP3"));
    EXPECT_EQ(input.count(), 3);
    EXPECT_EQ(Rows().size(), 1);
    EXPECT_EQ(input.currentText(), Text("one*"));
}

TEST_F(Window, OptionsOfASearch) {
    Open();
    Settings& settings = window.ProgramSettings();
    settings.MaxReturnFiles = 1;
    settings.IncludeMP3Info = true;
    Search("*.mp3");
    EXPECT_EQ(Rows(), Texts({"\\\\S\\D\\one.mp3"}));
    ExpectCaption("Returned 1 files in ");
    EXPECT_EQ(Results().SubItem(1, 5) + Results().SubItem(1, 7), Text("00:00:000"));

    settings.MaxReturnFiles = 5000;
    settings.ExcNetNodes = Texts({"T|True|Workstation"});
    QTest::keyClick(&Find<QCheckBox>("chkRecurse"), Qt::Key_Space);
    Search("*.mp3");
    EXPECT_EQ(Rows(), Texts({"\\\\S\\D\\one.mp3"}));
    settings.ExcludeNetNodes = false;
    Search("*.mp3");
    EXPECT_EQ(Rows().size(), 2);
    settings.AutoAsterisks = false;
    Search("one,read");
    EXPECT_TRUE(Rows().isEmpty());
}

TEST_F(Window, ARunningSearchGuardsItsInputAndCanBeAborted) {
    Open();
    bool seen = false;
    When("list \\\\T\\E\\", [&] {
        seen = true;
        for (const char* name : {"cmdSetSearchStart", "cmdInpNetNode", "LstSearchFor", "chkRecurse",
                                 "cmdStartSearch", "imgFiles(0)"})
            EXPECT_FALSE(Find(name).isEnabled()) << name;
        EXPECT_TRUE(Find("imgFiles(1)").isVisible());
        EXPECT_FALSE(Find("imgFiles(0)").isVisible());
        EXPECT_TRUE(Find("cmdAbandon").hasFocus());
        EXPECT_EQ(StatusText(1), Text("Searching..."));
        EXPECT_EQ(StatusText(2), Text("\\\\T\\E\\"));
        EXPECT_EQ(Caption(), Text("Search in progress. 2 files found."));
        for (const char* name : {"mnuCont", "mnuOpts"})
            EXPECT_FALSE(Find<QAction>(name).isEnabled()) << name;
        RightClick("imgFiles(1)");
        EXPECT_FALSE(Find("mnuPopUp5").isVisible());
        QTest::keyClick(&window, Qt::Key_Return);
    });
    Search("*.mp3");
    EXPECT_TRUE(seen);
    EXPECT_EQ(Rows().size(), 2);
    ExpectCaption("Aborted, but returned 2 files in ");
    EXPECT_FALSE(Find("cmdAbandon").isEnabled());
    EXPECT_TRUE(Find("cmdStartSearch").isEnabled());
    for (const char* name : {"mnuCont", "mnuOpts"})
        EXPECT_TRUE(Find<QAction>(name).isEnabled()) << name;
    EXPECT_EQ(StatusText(2), QString());
}

TEST_F(Window, OneJobRunsAtATime) {
    Open();
    Type("*.mp3");
    int walks = 0;
    network.OnCall = [&](const QString& call) { walks += call == Text("enter \\\\S\\D") ? 1 : 0; };
    // All of it comes in before the search has switched anything off.
    const auto startWith = [&](const std::function<void()>& second) {
        walks = 0;
        QMetaObject::invokeMethod(
            &window, [&] { Click("cmdStartSearch"); }, Qt::QueuedConnection);
        QMetaObject::invokeMethod(&window, second, Qt::QueuedConnection);
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

    startWith([&] { window.close(); });
    EXPECT_EQ(dialogs.TakeWhole(), std::string("exclamation: ") + SearchInProgress);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(walks, 0) << "who closes wants no search";
    ExpectCaption("Returned 0 files in ");
    EXPECT_TRUE(window.close());
}

TEST_F(Window, AWaitForTheNetworkCanBeAborted) {
    Open();
    Find("chkRecurse").setFocus();
    When("list \\\\S\\D\\SUB\\", [&] {
        // The row that has come is shown, and the button answers, though nobody yields.
        EXPECT_EQ(Results().model()->rowCount(), 0);
        QElapsedTimer clock;
        clock.start();
        while (Results().model()->rowCount() == 0 && WhileWaiting() && clock.elapsed() < 5000) {
        }
        QMetaObject::invokeMethod(
            &window, [&] { QTest::keyClick(window.windowHandle(), Qt::Key_A, Qt::AltModifier); },
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
    Open();
    network.OnCall = [](const QString& call) {
        if (call == Text("open "))
            throw RunTimeError(ErrorNumber::DeviceIOError);
    };
    Search("*.mp3");
    EXPECT_EQ(dialogs.WholeBoxes(), "critical: Error while searching: Error while processing "
                                    "request.\r\n57\r\nDevice I/O error");
    ExpectCaption("Returned 0 files in 0 seconds.");
    EXPECT_TRUE(Find("cmdStartSearch").isEnabled());
    network.OnCall = {};
    Search("[");
    EXPECT_EQ(dialogs.Shown.size(), 1) << "the walk over children catches that one";
    Search("readme");
    dialogs.Take();
    Find<QCheckBox>("chkRecurse").setFocus();
    Search(" , ");
    EXPECT_EQ(dialogs.TakeWhole(), "information: Null search input: No search parameters!");
    EXPECT_EQ(Rows().size(), 1);
    EXPECT_TRUE(Find<QComboBox>("LstSearchFor").lineEdit()->hasFocus());
}

TEST_F(Window, NoHandlerRunsDuringTheStart) {
    bool cameIn = false;
    QTimer::singleShot(0, &window, [&] { cameIn = true; });
    SetYieldAlways(true);
    window.Form_Load();
    SetYieldAlways(false);
    EXPECT_FALSE(cameIn);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cameIn; })) << "yields are back, and the event waits";
}

TEST_F(Window, ComesUpWithoutALog) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(Text("Netrove.log")));
    Open();
    EXPECT_EQ(dialogs.Boxes(), "frmNetrove.Form_Load Error: 75\r\nPath/File access error");
    Search("*.mp3");
    EXPECT_EQ(Rows().size(), 3);
}

TEST_F(Window, OpensWithAndOutlivesSettingsThatAreNone) {
    ProfileFile(SettingsPath()).WriteIni(Text("Skin"), Text("Index"), Text("2147483648"));
    const QByteArray before = ReadFile(SettingsPath());
    const QString copy = WriteFile(SettingsPath() + Text(".copy-1"), "an earlier one");
    Open();
    EXPECT_EQ(dialogs.Boxes(), "frmNetrove.Form_Load Error: 6\r\nOverflow\r\nNot all settings were "
                               "loaded. Their file is kept as " +
                                   SettingsPath().toStdString() + ".copy-2.");
    EXPECT_EQ(ReadFile(SettingsPath() + Text(".copy-2")), before) << "already";
    EXPECT_FALSE(QFile::exists(folder.filePath(Text("Netrove.log")))) << "the start stopped there";
    EXPECT_EQ(Find("stbStatus").geometry().bottom(), window.centralWidget()->rect().bottom());
    Search("*.mp3");
    EXPECT_EQ(Rows().size(), 3);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(ProfileFile(SettingsPath()).ReadIni(Text("Skin"), Text("Index"), QString()),
              Text("0"));
    EXPECT_EQ(ReadFile(SettingsPath() + Text(".copy-2")), before);
    EXPECT_EQ(ReadFile(copy), "an earlier one");

    QFile::remove(SettingsPath());
    ASSERT_TRUE(QDir().mkdir(SettingsPath()));
    frmNetrove again(Services(network));
    WindowDriver(again).Open();
    EXPECT_TRUE(again.close());
    EXPECT_EQ(dialogs.Shown.size(), 1) << "neither a missing file nor a failed write is told";
}

TEST_F(Window, EnterInAListStartsNoSearch) {
    Open();
    Search("*.mp3");
    auto& list = Results();
    list.setFocus();
    QTest::keyClick(list.focusWidget(), Qt::Key_Down);
    Find<QComboBox>("LstSearchFor").setEditText(Text("readme"));
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Rows().size(), 3);
    Find("chkRecurse").setFocus();
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Rows().size(), 1);
}

TEST_F(Window, OpensHelpAndTheWebSite) {
    Open();
    QTest::keyClick(&Find("chkRecurse"), Qt::Key_F1);
    RightClick("HyperLbl");
    Click("HyperLbl");
    ASSERT_EQ(shell.Opened.size(), 2);
    EXPECT_TRUE(shell.Opened[0].startsWith(folder.path()));
    EXPECT_EQ(shell.Opened[1], Text("https://www.example.com/"));
    Trigger("mnuViewTrLog");
    EXPECT_EQ(shell.Opened.last(), folder.filePath(Text("Netrove.log")));
    EXPECT_TRUE(QFile::exists(shell.Opened.last()));
    shell.Result = Shell::FileNotFound;
    Trigger("mnuTBS");
    EXPECT_EQ(dialogs.Boxes(), "Shell execute failed...: https://www.example.com/\r\nError: File "
                               "not found.  Couldn't Execute!");
}

TEST_F(Window, FollowsItsSize) {
    Open();
    const auto& tabs = Find<QTabWidget>("SSTab1");
    for (const QSize size : {QSize(800, 600), QSize(1200, 700), QSize(740, 470)}) {
        window.resize(size);
        QCoreApplication::processEvents();
        const QRect inner = window.centralWidget()->rect();
        EXPECT_EQ(tabs.size(), inner.size() - QSize(10, 112));
        for (const ListView* list : {&Results(), &Downloads()}) {
            EXPECT_EQ(list->width(), tabs.width() - 8);
            EXPECT_NEAR(list->height(), tabs.height() - 42, 1);
        }
        const QRect caption = Find("RetFileLbl").geometry();
        EXPECT_GT(caption.top(), Results().geometry().bottom());
        EXPECT_LE(caption.bottom(), Find("RetFileLbl").parentWidget()->height());
        const QRect status = Find("stbStatus").geometry();
        EXPECT_EQ(status.bottom(), inner.bottom());
        const auto& panels = Find<StatusBar>("stbStatus");
        EXPECT_EQ(panels.MinWidth(1), 1764);
        EXPECT_EQ(panels.MinWidth(2), 15 * inner.width() - 45 - 1764 - 529);
        EXPECT_LE(tabs.mapTo(window.centralWidget(), QPoint(0, tabs.height())).y(), status.y());
    }
    window.resize(100, 100);
    QCoreApplication::processEvents();
    EXPECT_GE(window.frameGeometry().width(), 11010 / 15);
    EXPECT_GE(window.frameGeometry().height(), 6975 / 15);
}

TEST_F(Window, AShortenedPathIsShownWhole) {
    QString path = Text("\\\\S\\D\\");
    for (int depth = 0; depth < 25; ++depth)
        path += Text("FOLDER WITH A LONG NAME ") + QString::number(depth) + u'\\';
    AddFile((path + Text("deep.mp3")).toUtf8().constData());
    Open();
    auto& bar = Find<StatusBar>("stbStatus");
    int shortened = 0;
    // With more room, a text that isn't cut looks the same.
    network.OnCall = [&](const QString& /*call*/) {
        if (!StatusText(2).contains(Text("...\\")))
            return;
        ++shortened;
        constexpr int Edge = 2;
        const QRect inside = bar.PanelRect(2).adjusted(Edge, Edge, -Edge, -Edge);
        const QImage picture = bar.grab(inside).toImage();
        const int width = bar.MinWidth(2);
        bar.SetMinWidth(2, width + ToTwips(15));
        EXPECT_TRUE(picture == bar.grab(inside).toImage())
            << StatusText(2).toStdString() << ' ' << bar.font().toString().toStdString();
        bar.SetMinWidth(2, width);
    };
    for (const char* family : {"DejaVu Sans", "DejaVu Serif", "Liberation Mono"}) {
        for (const double points : {7.5, 9.0, 12.5, 20.0}) {
            QFont font(Text(family));
            font.setPointSizeF(points);
            font.setItalic(points > 10);
            bar.setFont(font);
            Search("deep*");
        }
    }
    EXPECT_GT(shortened, 200);
}

TEST_F(Window, ASearchGoesOnAcrossAnotherSkin) {
    Open();
    const WId id = window.winId();
    for (const char* skin : {"mnuSkin(4)", "mnuSkin(0)", "mnuSkin(5)"}) {
        bool switched = false;
        When("list \\\\S\\D\\SUB\\", [&] {
            switched = true;
            Trigger(skin);
            EXPECT_EQ(Caption(), Text("Search in progress. 1 files found."));
            EXPECT_TRUE(Find("cmdAbandon").hasFocus());
        });
        Search("*.mp3");
        EXPECT_TRUE(switched && Find<QAction>(skin).isChecked());
        EXPECT_EQ(Rows().size(), 3);
        EXPECT_EQ(window.winId(), id);
    }
}

} // namespace
} // namespace netrove
