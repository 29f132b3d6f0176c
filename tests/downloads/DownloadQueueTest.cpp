#include "downloads/DownloadQueue.h"

#include "desktop/WindowYield.h"
#include "downloads/DownloadRows.h"
#include "fakes/CommandedCopier.h"
#include "fakes/DesktopFakes.h"
#include "fakes/Files.h"
#include "fakes/ListHands.h"
#include "fakes/Text.h"
#include "runtime/Yield.h"
#include "windowservices/SortListView.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// The queue over two lists, with timers that don't keep a test waiting, and a pass of the event
/// loop at every yield.
class Queue : public testing::Test {
protected:
    Queue() {
        for (int column = 1; column <= 12; ++column)
            results.AddColumn(QString::number(column), Qt::AlignLeft, 600);
        for (int column = 1; column <= 9; ++column)
            downloads.AddColumn(QString::number(column), Qt::AlignLeft, 600);
        status.AddPanel(Text("Idle"), 1000);
        status.AddPanel(QString(), 5000);
        tabs.addTab(new QWidget, Text("Results"));
        tabs.addTab(new QWidget, Text("Downloads"));
        settings.SaveFolder = folder.path() + u'/';
        queue.SetCopier(copier.get());
        Timer("DloadScanTmr").setInterval(1);
        Timer("DloadQueueTmr").setInterval(1);
        SetYieldAlways(true);
    }
    ~Queue() override { SetYieldAlways(false); }

    QTimer& Timer(const char* name) { return *window.findChild<QTimer*>(Text(name)); }

    void AddResult(const QString& location, const QString& name) {
        const int row = results.Add(name);
        results.SetSubItem(row, 1, location);
        for (const int number : {2, 3, 4, 8, 9})
            results.SetSubItem(row, number, name + QString::number(number));
    }

    /// Adds these files of \\S\D as results and queues them.
    void QueueFiles(std::initializer_list<const char*> names) {
        results.Clear();
        for (const char* name : names)
            AddResult(Text("\\\\S\\D\\"), Text(name));
        QueueAll();
    }
    void QueueAll() {
        for (int row = 1; row <= results.Count(); ++row)
            results.SetSelected(row, true);
        queue.lvwResults_DblClick();
    }

    /// The rows as "name: state", in the order of the list.
    [[nodiscard]] QString Rows() const {
        QStringList rows;
        for (int row = 1; row <= downloads.Count(); ++row)
            rows.append(downloads.Text(row) + Text(": ") +
                        downloads.SubItem(row, DownloadItem::Status));
        return rows.join(Text(", "));
    }

    void ExpectRows(const char* expected) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return Rows() == Text(expected); }))
            << "there is " << Rows().toStdString() << "\nnot      " << expected;
    }

    void ExpectCaption(const char* expected) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return caption.text() == Text(expected); })) << expected;
    }
    /// Lets both timers tick, several times.
    void LetTick() {
        QSignalSpy scans(&Timer("DloadScanTmr"), &QTimer::timeout);
        EXPECT_TRUE(QTest::qWaitFor([&scans] { return scans.size() >= 3; }));
    }

    QTemporaryDir folder;
    QWidget window;
    QTabWidget tabs{&window};
    ListView results{&window};
    ListView downloads{&window};
    QLabel caption{Text("---"), &window};
    StatusBar status{&window};
    Settings settings;
    RecordedDialogs dialogs;
    WindowYield yield;
    CurrentJob job;
    std::unique_ptr<CommandedCopier> copier = std::make_unique<CommandedCopier>();
    DownloadQueue queue{
        {window, tabs, results, downloads, caption, status}, settings, dialogs, job};
};

TEST_F(Queue, GoesThroughItsStates) {
    AddResult(Text("\\\\S\\D\\"), Text("a"));
    queue.lvwResults_DblClick();
    EXPECT_EQ(downloads.Count(), 0) << "nothing is selected";
    EXPECT_FALSE(Timer("DloadScanTmr").isActive());

    QueueFiles({"a"});
    EXPECT_EQ(tabs.currentIndex(), 1);
    std::string texts;
    for (const int number : {1, 2, 3, 4, 6, 7})
        texts += Column(downloads, number) + ' ';
    EXPECT_EQ(texts, "\\\\S\\D\\ a2 a3 a4 a8 a9 ");
    ExpectRows("a: Downloading");
    EXPECT_EQ(downloads.SubItem(1, DownloadItem::CopyID), Text("copy 1"));
    settings.SaveFolder.chop(1);
    QueueFiles({"b"});
    ExpectRows("a: Downloading, b: Downloading");
    EXPECT_EQ(copier->Accepted, QStringList({Text("\\\\S\\D\\a > ") + folder.filePath(Text("a")),
                                             Text("\\\\S\\D\\b > ") + folder.filePath(Text("b"))}));
    copier->Finish(2, 57);
    copier->Finish(1);
    ExpectRows("a: Done!, b: Error (57)");
    EXPECT_EQ(downloads.ForeColor(1), QColor(0, 255, 0));
    EXPECT_EQ(downloads.SubItemForeColor(1, 8), QColor(0, 255, 0));
    EXPECT_EQ(downloads.ForeColor(2), QColor(255, 0, 0));
    copier->Finish(7);
    Q_EMIT copier->CopyDone(QString(), 1);
    LetTick();
    ExpectRows("a: Done!, b: Error (57)");
    EXPECT_EQ(copier->Accepted.size(), 2) << "no state leads back";
}

TEST_F(Queue, AStartThatFailsBecomesTheState) {
    copier->Refusal = ErrorNumber::FileNotFound;
    QueueFiles({"a"});
    ExpectRows("a: Error (53)");
    EXPECT_FALSE(downloads.ForeColor(1).isValid());
    copier.reset();
    QueueFiles({"b"});
    ExpectRows("a: Error (53), b: Error (429)");
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(Queue, StartsOneMoreThanTheLimitAndClearsAllButThose) {
    settings.MaxConcurrentDownloads = 1;
    QueueFiles({"a", "b", "c", "d", "e", "f"});
    LetTick();
    ExpectRows("a: Downloading, b: Downloading, c: Pending, d: Pending, e: Pending, f: Pending");
    copier->Finish(2, 70);
    ExpectRows("a: Downloading, b: Error (70), c: Downloading, d: Pending, e: Pending, f: Pending");
    for (const int row : {1, 2, 4})
        downloads.SetSelected(row, true);
    queue.ClearMnu_Click();
    ExpectRows("a: Downloading, c: Downloading, e: Pending, f: Pending");
    EXPECT_EQ(downloads.SelectedCount(), 0);
    ExpectCaption("2 files in queue to be downloaded.");
    copier->Finish(1);
    ExpectRows("a: Done!, c: Downloading, e: Downloading, f: Pending");
    ExpectCaption("1 file in queue to be downloaded.");
    queue.ClearAllMnu_Click();
    ExpectRows("c: Downloading, e: Downloading");
    copier->Finish(3);
    copier->Finish(4);
    ExpectRows("c: Done!, e: Done!");
    queue.ClearAllMnu_Click();
    EXPECT_EQ(downloads.Count(), 0);
    EXPECT_TRUE(Timer("DloadScanTmr").isActive());
}

TEST_F(Queue, QueuesEachFileOnce) {
    settings.SwitchToDloadTab = false;
    for (const auto& [folderOf, name] :
         TextPairs{{"\\\\S\\D\\", "a"}, {"\\\\S\\E\\", "a"}, {"\\\\S\\D\\", "A"}})
        AddResult(Text(folderOf), Text(name));
    QueueAll();
    EXPECT_EQ(tabs.currentIndex(), 0);
    ExpectRows("a: Downloading, a: Downloading, A: Downloading");
    copier->Finish(1);
    QueueAll();
    ExpectRows("a: Done!, a: Downloading, A: Downloading");
    queue.ClearAllMnu_Click();
    QueueAll();
    ExpectRows("a: Downloading, A: Downloading, a: Downloading");
}

TEST_F(Queue, AsksOnceBeforeItOverwrites) {
    WriteFile(folder.filePath(Text("a")), {});
    dialogs.Answer = MessageAnswer::No;
    // Ticks go by while the question is open.
    dialogs.OnMessage = [this] {
        QTest::qWait(20);
        queue.DownLoadIt(1);
        queue.DownLoadIt(2);
    };
    QueueFiles({"a", "b"});
    ExpectRows("a: No O/W, b: Downloading");
    EXPECT_EQ(dialogs.TakeWhole(), "exclamation, Yes/No(No): Overwrite file?...: " +
                                       folder.filePath(Text("a")).toStdString() +
                                       "\r\nThe file already exists. Overwrite it?");
    EXPECT_FALSE(downloads.ForeColor(1).isValid());
    queue.ClearAllMnu_Click();
    dialogs.Answer = MessageAnswer::Yes;
    dialogs.OnMessage = {};
    QueueFiles({"a"});
    ExpectRows("b: Downloading, a: Downloading");

    // A row that is cleared under its question isn't started, whatever the answer.
    dialogs.OnMessage = [this] { queue.ClearAllMnu_Click(); };
    WriteFile(folder.filePath(Text("c")), {});
    QueueFiles({"c"});
    ExpectRows("b: Downloading, a: Downloading");
    EXPECT_EQ(copier->Accepted.size(), 2);
    EXPECT_EQ(dialogs.Shown.size(), 2);
}

TEST_F(Queue, AsksAboutATargetThatHasComeMeanwhile) {
    QueueFiles({"a", "b"});
    ExpectRows("a: Downloading, b: Downloading");
    dialogs.OnMessage = [this] {
        dialogs.Answer = dialogs.Shown.size() == 1 ? MessageAnswer::No : MessageAnswer::Yes;
        QTest::qWait(20); // the other question waits
    };
    for (const int copy : {1, 2}) {
        const QString id = Text("copy %1").arg(copy);
        copier->Running.remove(id);
        Q_EMIT copier->TargetTaken(id);
    }
    ExpectRows("a: No O/W, b: Downloading");
    EXPECT_TRUE(QTest::qWaitFor([this] { return copier->Accepted.size() == 3; }));
    EXPECT_EQ(copier->Accepted.last(), Text("\\\\S\\D\\b >> ") + folder.filePath(Text("b")));
    copier->Finish(3);
    ExpectRows("a: No O/W, b: Done!");
}

TEST_F(Queue, LosesNoCompletion) {
    // The copy has ended before its id is known.
    copier->OnAccept = [this](const QString& id) {
        copier->Running.remove(id);
        Q_EMIT copier->CopyDone(id, 0);
    };
    QueueFiles({"a", "b"});
    ExpectRows("a: Done!, b: Done!");
    // The list is turned over between a copy's start and its end.
    copier->OnAccept = [this](const QString& /*id*/) {
        SortListView(downloads, 1, 1, false, dialogs);
    };
    QueueFiles({"c", "d", "e"});
    EXPECT_TRUE(QTest::qWaitFor([this] { return copier->Accepted.size() == 5; }));
    SortListView(downloads, 1, 1, false, dialogs);
    QMap<QString, QString> expected{{Text("a"), Text("Done!")}, {Text("b"), Text("Done!")}};
    for (int copy = 3; copy <= 5; ++copy) {
        expected[copier->Accepted[copy - 1].section(Text(" > "), 0, 0).last(1)] =
            Text("Error (%1)").arg(copy);
        copier->Finish(copy, copy);
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Rows().contains(Text("Downloading")); }));
    for (int row = 1; row <= downloads.Count(); ++row)
        EXPECT_EQ(downloads.SubItem(row, DownloadItem::Status), expected[downloads.Text(row)]);
}

TEST_F(Queue, TakesAsManyRowsAsItCanCount) {
    SetYieldAlways(false);
    Timer("DloadScanTmr").setInterval(100000);
    for (int number = 0; number <= DownloadQueue::MaxRows; ++number)
        AddResult(Text("\\\\S\\D\\"), QString::number(number));
    QElapsedTimer timer;
    timer.start();
    QueueAll();
    EXPECT_EQ(downloads.Count(), DownloadQueue::MaxRows);
    EXPECT_EQ(dialogs.WholeBoxes(), "critical: Error in Results Col DblClick: 6\r\nOverflow");
    EXPECT_TRUE(Timer("DloadScanTmr").isActive());
    downloads.selectAll();
    EXPECT_EQ(downloads.SelectedCount(), DownloadQueue::MaxRows);
    queue.ClearMnu_Click();
    EXPECT_EQ(downloads.Count(), 0);
    // Walking the list for every row would take minutes.
    EXPECT_LT(timer.elapsed(), 20000);
    RecordProperty("milliseconds", std::to_string(timer.elapsed()));
}

} // namespace
} // namespace netrove
