#include "fakes/CommandedCopier.h"
#include "gui/WindowTest.h"

#include <QClipboard>
#include <QMimeData>

namespace netrove {
namespace {

/// Over a share \\S\D with three files of different sizes, after a search, with a copier that is
/// told when to finish.
class DownloadsTest : public WindowTest {
protected:
    void SetUp() override {
        newCopyQ = [this] {
            auto made = std::make_unique<CommandedCopier>();
            copier = made.get();
            return made;
        };
        AddFile("\\\\S\\D\\b.mp3", 9000000);
        AddFile("\\\\S\\D\\a.txt", 100000000);
        AddFile("\\\\S\\D\\SUB\\c.txt", 2000000);
        Open();
        Search("*.*");
        HurryDownloads();
    }

    static void DoubleClickRow(ListView& list, int row) {
        ClickRow(list, row);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(list, row));
    }
    void ExpectStates(const char* states) {
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return Column(downloads, DownloadItem::Status) == states;
        })) << Column(downloads, DownloadItem::Status);
    }
    void RunAll() {
        DownloadAll();
        ExpectStates("Downloading Downloading Downloading");
    }

    /// The captions in the menu that is open, nothing for separators; closes it.
    std::string TakeMenu() {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return {};
        QStringList captions;
        for (const QAction* item : menu->actions()) {
            if (item->isVisible())
                captions.append(item->text());
        }
        menu->close();
        Activate();
        return captions.join(u'|').toStdString();
    }
    /// The same for the menu of a row, which the right button opens.
    std::string MenuOf(ListView& list, int row) {
        ClickRow(list, row, {}, Qt::RightButton);
        return TakeMenu();
    }
    /// Opens the menu of a row, and picks an item.
    void PickFor(ListView& list, int row, const char* item) {
        ClickRow(list, row, {}, Qt::RightButton);
        Pick(&list == &results ? "PopUp2Mnu" : "PopUp1Mnu", item);
    }

    CommandedCopier* copier = nullptr; ///< the window's own
    ListView& results = Results();
    ListView& downloads = Downloads();
};

TEST_F(DownloadsTest, DoubleClickDownloadsAndClears) {
    DoubleClickRow(results, 1);
    ExpectStates("Downloading");
    EXPECT_EQ(copier->Accepted.join(u','),
              Text("\\\\S\\D\\b.mp3 > ") + folder.path() + Text("/Downloads/b.mp3"));
    ClickRow(downloads, 1);
    QTest::keyClick(&downloads, Qt::Key_Delete);
    ExpectStates("Downloading"); // and stays
    copier->Finish(1);
    ExpectStates("Done!");
    DoubleClickRow(downloads, 1);
    EXPECT_EQ(downloads.Count(), 0);
}

TEST_F(DownloadsTest, HeadersSort) {
    ClickHeader(results, 1);
    EXPECT_EQ(Column(results), "c.txt b.mp3 a.txt");
    // By value, not by the texts 95.3674, 8.5831 and 1.9073.
    for (const char* sorted : {"c.txt b.mp3 a.txt", "a.txt b.mp3 c.txt"}) {
        ClickHeader(results, 3);
        EXPECT_EQ(Column(results), sorted);
    }
    EXPECT_EQ(results.HeaderText(1) + results.HeaderText(3), Text("File NameSize (MB) v"));
    // Nor by the dates as they are shown.
    for (int row = 1; row <= 3; ++row) {
        results.SetSubItem(row, 3, Text("0%1/01/20").arg(row));
        results.SetSubItem(row, 9, Text("2020%1").arg(row % 3));
    }
    ClickHeader(results, 4);
    EXPECT_EQ(Column(results), "c.txt a.txt b.mp3");
    RunAll();
    ClickHeader(downloads, 3);
    EXPECT_EQ(Column(downloads), "a.txt b.mp3 c.txt");
    ClickHeader(downloads, 4);
    EXPECT_EQ(Column(downloads), "c.txt a.txt b.mp3");
}

TEST_F(DownloadsTest, ResultsMenu) {
    EXPECT_EQ(MenuOf(results, 1),
              "Download||Open Folder|Explore Folder||Member of WG Workgroup||Sample MP3 Remotely");
    results.SetSubItem(1, 1, Text("\\\\GONE\\D\\"));
    EXPECT_NE(MenuOf(results, 1).find("|Member of ?? Workgroup|"), std::string::npos);
    PickFor(results, 2, "mnuSampleFile");
    PickFor(results, 3, "OpenFolMnu");
    EXPECT_EQ(shell.Opened, Texts({"\\\\S\\D\\a.txt", "\\\\S\\D\\SUB\\"}));
    ClickRow(results, 2, Qt::ControlModifier);
    EXPECT_EQ(MenuOf(results, 2), "") << "several rows have no menu";
    ClickRow(results, 3);
    shell.Result = 5;
    PickFor(results, 3, "ExpFolMnu");
    EXPECT_EQ(dialogs.TakeWhole(), "critical: Folder Error...: Failed to explore \\\\S\\D\\SUB\\");
    PickFor(results, 3, "mnuDownload");
    EXPECT_EQ(Column(downloads), "c.txt");
    Find<QTabWidget>("SSTab1").setCurrentIndex(0);
    results.SetCurrentRow(0);
    QTest::mouseClick(results.viewport(), Qt::RightButton, Qt::NoModifier,
                      QPoint(5, results.viewport()->height() - 5));
    EXPECT_EQ(dialogs.Boxes(), "Error in Results MouseDown: 91\r\nObject variable not set");
}

TEST_F(DownloadsTest, DownloadsMenuFollowsTheStates) {
    const std::string folders = "Clear All||Open Downloads Folder|Explore Downloads Folder";
    const QPoint place(5, 5);
    QTest::mouseClick(downloads.viewport(), Qt::RightButton, Qt::NoModifier, place);
    EXPECT_EQ(TakeMenu(), "") << "no rows";
    RunAll();
    EXPECT_EQ(MenuOf(downloads, 1), "Clear Selected|" + folders);
    copier->Finish(1);
    copier->Finish(2, 429);
    ExpectStates("Done! Error (429) Downloading");
    EXPECT_EQ(MenuOf(downloads, 1), "Clear Selected|" + folders + "||Sample File Locally");
    EXPECT_EQ(MenuOf(downloads, 2), "Clear Selected|" + folders + "||Error Description");
    ClickRow(downloads, 1, Qt::ControlModifier);
    EXPECT_EQ(MenuOf(downloads, 2), "Clear Selected|" + folders);
    downloads.clearSelection();
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, place,
                            downloads.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(downloads.viewport(), &byKey);
    EXPECT_EQ(TakeMenu(), folders);

    PickFor(downloads, 1, "mnuSampleFileLoc");
    EXPECT_EQ(shell.Opened, QStringList(folder.path() + Text("/Downloads/b.mp3")));
    PickFor(downloads, 2, "ErrDescMnu");
    PickFor(downloads, 2, "mnuViewFolder(0)");
    EXPECT_EQ(
        dialogs.WholeBoxes(),
        "information: Error Description: Error #429 - Component can't create "
        "object\r\n(Re-installation of the "
        "application will usually solve this problem.)|critical: Folder Error...: Failed to open " +
            folder.path().toStdString() + "/Downloads/");
}

TEST_F(DownloadsTest, ClearAllEmptiesBothLists) {
    RunAll();
    copier->Finish(1);
    copier->Finish(3, 53);
    ExpectStates("Done! Downloading Error (53)");
    dialogs.OnMessage = [this] {
        EXPECT_EQ(results.Count(), 0);
        EXPECT_FALSE(Find("cmdStartSearch").isEnabled() || Find("cmdClearLst").isEnabled());
    };
    auto& texts = Find<QComboBox>("LstSearchFor");
    for (const auto& [answer, left] : {std::pair(MessageAnswer::No, 1), {MessageAnswer::Yes, 0}}) {
        dialogs.Answer = answer;
        Click("cmdClearLst");
        EXPECT_EQ(dialogs.TakeWhole(), "question, Yes/No(No): Clear search list?: Would you also "
                                       "like to clear the drop-down search list?");
        EXPECT_EQ(texts.count(), left);
    }
    EXPECT_EQ(texts.currentText(), Text("*.*"));
    EXPECT_EQ(Caption(), Text("---"));
    EXPECT_EQ(Column(downloads), "a.txt") << "it runs";
    EXPECT_TRUE(Find("cmdClearLst").isEnabled() && !Find("cmdAbandon").isEnabled());
}

TEST_F(DownloadsTest, CopiesPathsAndAddresses) {
    ClickRow(results, 1);
    ClickRow(results, 3, Qt::ControlModifier);
    QTest::keyClick(&results, Qt::Key_C, Qt::ControlModifier);
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->text(), Text("\\\\S\\D\\b.mp3\n\\\\S\\D\\SUB\\c.txt"));
    EXPECT_EQ(copied->urls(),
              (QList<QUrl>{QUrl(Text("net://S/D/b.mp3")), QUrl(Text("net://S/D/SUB/c.txt"))}));
    RunAll();
    ClickRow(downloads, 2);
    QTest::keyClick(&downloads, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), Text("\\\\S\\D\\a.txt"));
}

TEST_F(DownloadsTest, ClosingReleasesTheCopier) {
    RunAll();
    const QPointer<CopyQ> released(copier);
    Q_EMIT copier->CopyDone(Text("copy 1"), 0);
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(released.isNull());
    QCoreApplication::processEvents();
    EXPECT_EQ(dialogs.Boxes(), "");
}

} // namespace
} // namespace netrove
