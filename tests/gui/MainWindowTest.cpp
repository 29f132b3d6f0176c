#include "controls/ListHeader.h"
#include "controls/Twips.h"
#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "runtime/Yield.h"

#include <QMouseEvent>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// The real window over a network in memory: \\S with the share D and \\T with the share E, used
/// with keys and mouse.
class Window : public testing::Test, public TestDesktop, public WindowDriver {
protected:
    Window() : WindowDriver(window) {}

    void SetUp() override {
        network.AddNode(QString(), NetEnum::DisplayNetwork, Text("Net"));
        network.AddNode(Text("Net"), NetEnum::DisplayDomain, Text("WG"));
        for (const char* server : {"\\\\S", "\\\\T"})
            network.AddNode(Text("WG"), NetEnum::DisplayServer, Text(server));
        network.AddNode(Text("\\\\S"), NetEnum::DisplayShare, Text("\\\\S\\D"));
        network.AddNode(Text("\\\\T"), NetEnum::DisplayShare, Text("\\\\T\\E"));
        network.AddFile(Text("\\\\S\\D\\one.mp3"), 1500000);
        network.AddFile(Text("\\\\S\\D\\SUB\\two.MP3"), 2);
        network.AddFile(Text("\\\\S\\D\\readme"), 3);
        network.AddFile(Text("\\\\T\\E\\three.mp3"), 4);
    }

    /// Does something when the engine lists that folder: in the middle of a search.
    void When(const char* listed, std::function<void()> action) {
        network.OnCall = [call = QString(Text("list ") + Text(listed)), action,
                          done = false](const QString& made) mutable {
            if (!done && made == call) {
                done = true;
                action();
            }
        };
    }

    /// The settings file, which is named after the program: the test.
    [[nodiscard]] QString SettingsPath() const { return IniFileName(folder.path()); }

    MemoryNetwork network;
    const ProgramServices services = Services(network);
    frmNetrove window{services};
};

/// Takes the right edge of a column with the mouse and draws it to the right.
void DragColumnEdge(ListView& list, int column, int pixels) {
    QWidget* header = list.Header()->viewport();
    const int edge = list.Header()->sectionViewportPosition(column - 1) +
                     list.Header()->sectionSize(column - 1) - 1;
    const auto send = [&](QEvent::Type type, int x, Qt::MouseButton button, Qt::MouseButtons held) {
        const QPoint place(x, header->height() / 2);
        QMouseEvent event(type, place, header->mapToGlobal(place), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(header, &event);
    };
    send(QEvent::MouseMove, edge, Qt::NoButton, Qt::NoButton);
    send(QEvent::MouseButtonPress, edge, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, edge + pixels, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, edge + pixels, Qt::LeftButton, Qt::NoButton);
}

TEST_F(Window, SearchFillsRowsAndSummary) {
    Open();
    EXPECT_EQ(Find<StatusBar>("stbStatus").Text(1), Text("Idle"));
    EXPECT_EQ(Find<QLineEdit>("txtSearchStart").text(), Text("[Root]"));
    Search(" *.MP3 , ,");
    EXPECT_EQ(Rows(), (QStringList{Text("\\\\S\\D\\one.mp3"), Text("\\\\S\\D\\SUB\\two.MP3"),
                                   Text("\\\\T\\E\\three.mp3")}));
    auto& list = Find<ListView>("lvwResults");
    EXPECT_EQ(list.SubItem(1, 2), Text("1.4305"));
    EXPECT_EQ(list.SubItem(1, 3), Text("02/03/20"));
    EXPECT_EQ(list.SubItem(1, 4), Text("A"));
    EXPECT_EQ(list.SubItem(1, 5) + list.SubItem(1, 6) + list.SubItem(1, 7), Text("   "));
    EXPECT_EQ(list.SubItem(1, 8), Text("0001.4305000000"));
    EXPECT_EQ(list.SubItem(1, 9), Text("20200203040506"));
    EXPECT_EQ(list.SubItem(1, 11), Text("MP3"));
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
    QStringList items;
    for (int item = 0; item < input.count(); ++item)
        items.append(input.itemText(item));
    EXPECT_EQ(items, (QStringList{Text("*.mp3"), Text("one*"), Text("*.MP3")}));
    EXPECT_EQ(Rows().size(), 1);
    EXPECT_EQ(input.currentText(), Text("one*"));
}

TEST_F(Window, EmptyTextLeavesTheRows) {
    Open();
    Search("readme");
    Find<QCheckBox>("chkRecurse").setFocus();
    Search(" , ");
    EXPECT_EQ(dialogs.Shown, QStringList{Text("Null search input: No search parameters!")});
    EXPECT_EQ(Rows().size(), 1);
    EXPECT_TRUE(Find<QComboBox>("LstSearchFor").lineEdit()->hasFocus());
    EXPECT_TRUE(Find<QWidget>("cmdStartSearch").isEnabled());
    Search("readme");
    EXPECT_EQ(Rows().size(), 1);
}

TEST_F(Window, OptionsOfASearch) {
    Open();
    Settings& settings = window.ProgramSettings();
    settings.SizeFormat = 3;
    settings.MaxReturnFiles = 1;
    Search("*.mp3");
    EXPECT_EQ(Rows(), QStringList{Text("\\\\S\\D\\one.mp3")});
    EXPECT_TRUE(Caption().startsWith(Text("Returned 1 files in "))) << Caption().toStdString();
    for (const char* list : {"lvwResults", "lvwDownloads"})
        EXPECT_EQ(Find<ListView>(list).HeaderText(3), Text("Size (B)"));
    EXPECT_EQ(Find<ListView>("lvwResults").SubItem(1, 2), Text("1500000"));

    settings.MaxReturnFiles = 5000;
    settings.ExcNetNodes = {Text("Sub|True|Folder"), Text("T|True|Workstation")};
    Search("*.mp3");
    EXPECT_EQ(Rows(), QStringList{Text("\\\\S\\D\\one.mp3")});
    settings.ExcludeNetNodes = false;
    QTest::keyClick(&Find<QCheckBox>("chkRecurse"), Qt::Key_Space);
    Search("*.mp3");
    EXPECT_EQ(Rows(), (QStringList{Text("\\\\S\\D\\one.mp3"), Text("\\\\T\\E\\three.mp3")}));
    settings.AutoAsterisks = false;
    Search("one,read");
    EXPECT_TRUE(Rows().isEmpty());
}

TEST_F(Window, ARunningSearchGuardsItsInputAndCanBeAborted) {
    Open();
    bool seen = false;
    When("\\\\T\\E\\", [&] {
        seen = true;
        for (const char* name : {"cmdSetSearchStart", "cmdInpNetNode", "LstSearchFor", "chkRecurse",
                                 "cmdStartSearch", "imgFiles(0)"})
            EXPECT_FALSE(Find<QWidget>(name).isEnabled()) << name;
        EXPECT_TRUE(Find<QWidget>("imgFiles(1)").isVisible());
        EXPECT_FALSE(Find<QWidget>("imgFiles(0)").isVisible());
        EXPECT_TRUE(Find<QWidget>("cmdAbandon").hasFocus());
        EXPECT_EQ(Find<StatusBar>("stbStatus").Text(1), Text("Searching..."));
        EXPECT_EQ(Find<StatusBar>("stbStatus").Text(2), Text("\\\\T\\E\\"));
        EXPECT_EQ(Caption(), Text("Search in progress. 2 files found."));
        for (const char* name : {"mnuCont", "mnuOpts"})
            EXPECT_FALSE(Find<QAction>(name).isEnabled()) << name;
        RightClick("imgFiles(1)");
        EXPECT_FALSE(Find<QWidget>("mnuPopUp5").isVisible());
        QTest::keyClick(&window, Qt::Key_Return);
    });
    Search("*.mp3");
    EXPECT_TRUE(seen);
    EXPECT_EQ(Rows().size(), 2);
    EXPECT_TRUE(Caption().startsWith(Text("Aborted, but returned 2 files in ")))
        << Caption().toStdString();
    EXPECT_FALSE(Find<QWidget>("cmdAbandon").isEnabled());
    EXPECT_TRUE(Find<QWidget>("cmdStartSearch").isEnabled());
    for (const char* name : {"mnuCont", "mnuOpts"})
        EXPECT_TRUE(Find<QAction>(name).isEnabled()) << name;
    EXPECT_EQ(Find<StatusBar>("stbStatus").Text(2), QString());
}

TEST_F(Window, AWaitForTheNetworkCanBeAborted) {
    Open();
    Find<QCheckBox>("chkRecurse").setFocus();
    bool closed = false;
    When("\\\\S\\D\\SUB\\", [&] {
        // Nothing but the button answers while nobody yields.
        QMetaObject::invokeMethod(
            &window,
            [&] {
                closed = window.windowHandle()->close();
                QTest::keyClick(window.windowHandle(), Qt::Key_A, Qt::AltModifier);
            },
            Qt::QueuedConnection);
        QElapsedTimer clock;
        clock.start();
        while (WhileWaiting() && clock.elapsed() < 5000) {
        }
        EXPECT_LT(clock.elapsed(), 5000);
    });
    Search("*.mp3");
    EXPECT_FALSE(closed);
    EXPECT_EQ(Rows().size(), 1);
    EXPECT_TRUE(Caption().startsWith(Text("Aborted, but returned 1 files in ")))
        << Caption().toStdString();
    EXPECT_TRUE(WhileWaiting()) << "the next wait isn't given up";
    QCoreApplication::processEvents();
    // The request to close comes at the first yield after the wait, and is refused, or after the
    // search.
    EXPECT_NE(window.isVisible(), dialogs.Shown.isEmpty());
}

TEST_F(Window, FailuresEndInABox) {
    Open();
    network.OnCall = [](const QString& call) {
        if (call == Text("open "))
            throw RunTimeError(ErrorNumber::DeviceIOError);
    };
    Search("*.mp3");
    EXPECT_EQ(dialogs.Shown, QStringList{Text("Error while searching: Error while processing "
                                              "request.\r\n57\r\nDevice I/O error")});
    EXPECT_TRUE(Caption().startsWith(Text("Returned 0 files in 0 seconds."))) << "summary";
    EXPECT_TRUE(Find<QWidget>("cmdStartSearch").isEnabled());
    network.OnCall = {};
    Search("[");
    EXPECT_EQ(dialogs.Shown.size(), 1) << "the walk over children catches that one";
}

TEST_F(Window, CloseIsRefusedDuringASearch) {
    Open();
    EXPECT_TRUE(QFile::exists(folder.filePath(Text("Netrove.log"))));
    When("\\\\S\\D\\", [&] { window.close(); });
    Search("*");
    EXPECT_EQ(dialogs.Shown, QStringList{Text("Search In Progress: Wait until the program reaches "
                                              "a stopping point.")});
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(Caption().startsWith(Text("Returned 0 files in "))) << Caption().toStdString();
    Find<QAction>("mnuExit1").trigger();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(dialogs.Shown.size(), 1);
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
    EXPECT_EQ(dialogs.Shown,
              QStringList{Text("frmNetrove.Form_Load Error: 75\r\nPath/File access error")});
    Search("*.mp3");
    EXPECT_EQ(Rows().size(), 3);
}

TEST_F(Window, ARestartFindsEverythingAsItWas) {
    Open();
    Search("*.mp3");
    Search("one*,two*");
    auto& list = Find<ListView>("lvwResults");
    DragColumnEdge(list, 2, 40);
    QTest::keyClick(&Find<QCheckBox>("chkRecurse"), Qt::Key_Space);
    window.ProgramSettings().ExcNetNodes.append(Text("T|True|Workstation"));
    window.ProgramSettings().SizeFormat = 3;
    window.resize(760, 480);
    window.move(20, 30);
    QCoreApplication::processEvents();
    const QRect place = window.windowHandle()->frameGeometry();
    const int width = list.ColumnWidth(2);
    EXPECT_EQ(width, 1500 + ToTwips(40));
    EXPECT_FALSE(QFile::exists(SettingsPath())) << "written at the end only";
    EXPECT_TRUE(window.close());

    frmNetrove again(services);
    WindowDriver driver(again);
    driver.Open();
    EXPECT_EQ(again.windowHandle()->frameGeometry(), place);
    auto& input = driver.Find<QComboBox>("LstSearchFor");
    EXPECT_EQ(input.currentText(), Text("one*,two*"));
    ASSERT_EQ(input.count(), 2);
    EXPECT_EQ(input.itemText(1), Text("*.mp3"));
    EXPECT_FALSE(driver.Find<QCheckBox>("chkRecurse").isChecked());
    for (const char* name : {"lvwResults", "lvwDownloads"}) {
        EXPECT_EQ(driver.Find<ListView>(name).ColumnWidth(2), width);
        EXPECT_EQ(driver.Find<ListView>(name).HeaderText(3), Text("Size (B)"));
    }
    driver.Search("*.mp3");
    EXPECT_EQ(driver.Rows(), QStringList{Text("\\\\S\\D\\one.mp3")}) << "\\\\T is excluded";
    EXPECT_TRUE(again.close());
    EXPECT_TRUE(dialogs.Shown.isEmpty());
    ProfileFile file(SettingsPath());
    EXPECT_EQ(file.ReadIni(Text("Exclude_Network_Nodes"), Text("Node5"), QString()),
              Text("T|True|Workstation"));
}

TEST_F(Window, OpensWithAndOutlivesSettingsThatAreNone) {
    ProfileFile(SettingsPath()).WriteIni(Text("Skin"), Text("Index"), Text("7"));
    ProfileFile(SettingsPath()).WriteIni(Text("Downloads"), Text("Concurrent"), Text("40000"));
    Open();
    EXPECT_EQ(dialogs.Shown, QStringList{Text("frmNetrove.Form_Load Error: 6\r\nOverflow")});
    EXPECT_FALSE(QFile::exists(folder.filePath(Text("Netrove.log")))) << "the start stopped there";
    Search("*.mp3");
    EXPECT_EQ(Rows().size(), 3);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(ProfileFile(SettingsPath()).ReadIni(Text("Skin"), Text("Index"), QString()),
              Text("0"));

    QFile::remove(SettingsPath());
    ASSERT_TRUE(QDir().mkdir(SettingsPath()));
    frmNetrove again(services);
    WindowDriver(again).Open();
    EXPECT_TRUE(again.close());
    EXPECT_EQ(dialogs.Shown.size(), 1) << "neither a missing file nor a failed write is told";
}

TEST_F(Window, EnterInAListStartsNoSearch) {
    Open();
    Search("*.mp3");
    auto& list = Find<ListView>("lvwResults");
    list.setFocus();
    QTest::keyClick(list.focusWidget(), Qt::Key_Down);
    Find<QComboBox>("LstSearchFor").setEditText(Text("readme"));
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Rows().size(), 3);
    Find<QWidget>("chkRecurse").setFocus();
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Rows().size(), 1);
}

TEST_F(Window, OpensHelpAndTheWebSite) {
    Open();
    QTest::keyClick(&Find<QWidget>("chkRecurse"), Qt::Key_F1);
    QTest::mouseClick(&Find<QWidget>("HyperLbl"), Qt::RightButton);
    QTest::mouseClick(&Find<QWidget>("HyperLbl"), Qt::LeftButton);
    ASSERT_EQ(shell.Opened.size(), 2);
    EXPECT_TRUE(shell.Opened[0].startsWith(folder.path()));
    EXPECT_EQ(shell.Opened[1], Text("https://www.example.com/"));
    Find<QAction>("mnuViewTrLog").trigger();
    EXPECT_EQ(shell.Opened.last(), folder.filePath(Text("Netrove.log")));
    shell.Result = Shell::FileNotFound;
    Find<QAction>("mnuTBS").trigger();
    EXPECT_EQ(dialogs.Shown,
              QStringList{Text("Shell execute failed...: https://www.example.com/\r\nError: File "
                               "not found.  Couldn't Execute!")});
}

TEST_F(Window, FollowsItsSize) {
    Open();
    const auto& tabs = Find<QTabWidget>("SSTab1");
    const auto& status = Find<StatusBar>("stbStatus");
    for (const QSize size : {QSize(800, 600), QSize(1200, 700), QSize(740, 470)}) {
        window.resize(size);
        QCoreApplication::processEvents();
        const QSize inner = window.centralWidget()->size();
        EXPECT_EQ(tabs.width(), inner.width() - 10);
        EXPECT_EQ(tabs.height(), (ToTwips(inner.height()) - 1675) / 15);
        for (const char* list : {"lvwResults", "lvwDownloads"}) {
            EXPECT_EQ(Find<ListView>(list).width(), tabs.width() - 8);
            EXPECT_NEAR(Find<ListView>(list).height(), tabs.height() - 42, 1);
        }
        const auto& caption = Find<QLabel>("RetFileLbl");
        const auto& results = Find<ListView>("lvwResults");
        EXPECT_EQ(caption.y(), results.y() + results.height() + 1);
        EXPECT_LE(caption.geometry().bottom(), caption.parentWidget()->height());
        EXPECT_EQ(status.MinWidth(2), ToTwips(inner.width()) - 45 - 1764 - 529);
        EXPECT_EQ(status.geometry().bottom(), window.centralWidget()->rect().bottom());
        EXPECT_LE(tabs.mapTo(window.centralWidget(), QPoint(0, tabs.height())).y(), status.y());
    }
    window.resize(100, 100);
    QCoreApplication::processEvents();
    EXPECT_GE(window.frameGeometry().width(), 11010 / 15);
    EXPECT_GE(window.frameGeometry().height(), 6975 / 15);
}

} // namespace
} // namespace netrove
