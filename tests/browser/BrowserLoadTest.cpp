#include "OpenBrowser.h"
#include "runtime/RunTimeError.h"

#include <QElapsedTimer>

namespace netrove {
namespace {

using Browser = OpenBrowser;

TEST_F(Browser, AsksTheNetworkASecondAfterItHasComeUp) {
    Make();
    QElapsedTimer clock;
    clock.start();
    qint64 firstCall = 0;
    onCall = [&](const QString& /*call*/) { firstCall = firstCall ? firstCall : clock.elapsed(); };
    browser->show();
    EXPECT_FALSE(IsShown("tvwNetwork"));
    EXPECT_FALSE(Find<QWidget>("cmdOk").isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([&] { return firstCall > 0; }));
    EXPECT_GE(firstCall, 1000);

    // Closed before that, it asks nobody.
    for (const bool byKey : {true, false}) {
        calls.clear();
        Show();
        Find<QTimer>("tmrNodes").start(1);
        if (byKey)
            QTest::keyClick(browser.get(), Qt::Key_Escape);
        else
            browser->close();
        QTest::qWait(50);
        EXPECT_EQ(calls, QStringList());
        EXPECT_TRUE(browser->Cancelled());
        EXPECT_FALSE(browser->Result());
    }
}

TEST_F(Browser, FirstLoadShowsItsProgressAndThenTheTree) {
    Show();
    QStringList seen;
    QTimer observer;
    observer.callOnTimeout([&] {
        if (IsShown("tvwNetwork"))
            return;
        EXPECT_FALSE(Find<QWidget>("cmdOk").isEnabled());
        const QString state = (IsShown("lblWait") ? Text("wait ") : Text("- ")) +
                              LabelText("lblProg") + u' ' + LabelText("lblProcPerc") + u' ' +
                              LabelText("lblAddNode");
        if (seen.isEmpty() || seen.last() != state)
            seen.append(state);
    });
    observer.start(0);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Find<QWidget>("cmdOk").isEnabled(); }));
    observer.stop();
    const QString half = Text("- ") + QString(18, u'|'); // of 17.5
    const QString full = Text("- ") + QString(35, u'|');
    EXPECT_EQ(seen.mid(seen.indexOf(Text("wait  0% "))),
              Texts({"wait  0% ", "-  0% ", "-  0% Adding Net"}) +
                  QStringList({half + Text(" 50% Adding Net"), half + Text(" 50% Adding Lone"),
                               full + Text(" 100% Done")}));

    for (const char* hidden : {"lblWait", "lblAddNode", "ImgNet(1)", "LblMain", "picProg"})
        EXPECT_FALSE(IsShown(hidden)) << hidden;
    EXPECT_TRUE(IsShown("tvwNetwork"));
    EXPECT_EQ(browser->focusWidget(), &Tree());
    EXPECT_EQ(LabelText("lblProg") + LabelText("lblProcPerc"), Text("0%"));
    EXPECT_TRUE(Tree().Expanded(Text("??_ROOT")));
    EXPECT_EQ(Tree().Text(Text("??_ROOT")), Text("Entire Network"));
    EXPECT_EQ(Tree().Image(Text("??Net")), Text("network"));
    EXPECT_EQ(Children("_ROOT"), "Net+ Lone+");
    EXPECT_EQ(calls, Texts({"open ", "print "})) << "and nothing below";
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(Browser, ExpansionReadsALevelOnce) {
    Open();
    calls.clear();
    ExpandAll({"Net", "WG", "\\\\S", "\\\\T", "Lone"});
    EXPECT_EQ(Children("Net"), "WG+");
    EXPECT_EQ(Children("WG"), "S+ T") << "what has nothing has no expand sign";
    EXPECT_EQ(Children("\\\\S"), "D+ E+ P") << "nor has a printer";
    EXPECT_EQ(Tree().Image(Text("??WG")), Text("domain"));
    EXPECT_EQ(Tree().Image(Text("??\\\\S\\P")), Text("printer"));
    EXPECT_EQ(calls, Texts({"open Net", "print Net", "open WG", "print WG", "open \\\\S",
                            "print \\\\S", "open \\\\T", "open Lone"}));
    Tree().SetSelected(Text("??Net"));
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Asterisk})
        Press(key);
    EXPECT_EQ(calls.size(), 8);
    EXPECT_EQ(dialogs.Boxes(), "");
}

/// While the network is waited for, no timer of the tree fires that would lay it out anew.
TEST_F(Browser, TheFakeChildIsGoneFromTheScreenBeforeTheWait) {
    class PaintWatch : public QObject {
    public:
        std::function<void()> onPaint;
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            if (event->type() == QEvent::Paint)
                onPaint();
            return false;
        }
    } watch;
    Open();
    int painted = -1; // rows below Net at the last painting
    watch.onPaint = [&] {
        const QModelIndex root = Tree().model()->index(0, 0);
        painted = Tree().model()->rowCount(Tree().model()->index(0, 0, root));
    };
    Tree().viewport()->installEventFilter(&watch);
    int paintedBeforeWait = -1;
    onCall = [&](const QString& call) {
        if (call == Text("open Net"))
            paintedBeforeWait = painted;
    };
    Expand("Net");
    EXPECT_EQ(paintedBeforeWait, 0);
    EXPECT_EQ(painted, 1);
}

TEST_F(Browser, TellsWhatFailed) {
    network.Unlistable = {QString()};
    Open();
    EXPECT_EQ(calls, Texts({"open "})) << "asked once";
    EXPECT_EQ(Tree().Count(), 1);
    EXPECT_EQ(LabelText("lblAddNode"), Text("Done"));
    EXPECT_EQ(dialogs.Boxes(), "") << "an empty network is none";
    onCall = [](const QString& call) {
        if (call == Text("open "))
            throw RunTimeError(ErrorNumber::PathNotFound);
    };
    Open();
    EXPECT_EQ(dialogs.TakeWhole(),
              "critical: Error while adding NONODE: An error was encountered when searching "
              "the network.\r\n76\r\nPath not found");
    EXPECT_TRUE(IsShown("tvwNetwork"));
    EXPECT_EQ(Tree().Count(), 1);

    onCall = nullptr;
    network.Unlistable.clear();
    network.AddNode(Text("Lone"), NetEnum::DisplayServer, Text("\\\\U"));
    network.AddNode(Text("Lone"), NetEnum::DisplayServer, Text("\\\\u"));
    Open();
    Expand("Lone");
    EXPECT_EQ(
        dialogs.WholeBoxes(),
        "critical: Error While Expanding Lone: An error was encountered when expanding the "
        "node.\r\nNode = "
        "'Lone'\r\n \r\n457\r\nThis key is already associated with an element of this collection");
    EXPECT_EQ(browser->cursor().shape(), Qt::ArrowCursor);
    EXPECT_FALSE(IsShown("picProg") || IsShown("lblWait"));
}

TEST_F(Browser, AChildThatFailsCostsNobodyElse) {
    network.AddNode({}, NetEnum::DisplayGeneric, Text("Odd"));
    network.AddNode({}, NetEnum::DisplayNetwork, Text("Last"));
    network.AddNode(Text("WG"), NetEnum::DisplayGeneric, Text("\\\\ODD"));
    network.AddNode(Text("WG"), NetEnum::DisplayServer, Text("Last")); // known under the root
    network.AddNode(Text("WG"), NetEnum::DisplayServer, Text("\\\\Z"));
    Open();
    ExpandAll({"Net", "WG"});
    EXPECT_EQ(Children("_ROOT"), "Net+ Lone+ Last+");
    EXPECT_EQ(Children("WG"), "S+ T+ Z+");
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(Browser, CloseDuringALoadEndsIt) {
    for (int index = 0; index < 50; ++index)
        network.AddNode({}, NetEnum::DisplayNetwork, Text("Net ") + QString::number(index));
    bool closed = false;
    int added = 0;
    const auto closeSoon = [&] { // in the midst of the children
        QTimer::singleShot(1000, browser.get(), [this] { browser->reject(); });
        auto* poll = new QTimer(browser.get());
        QObject::connect(poll, &QTimer::timeout, browser.get(), [&, poll] {
            if (Tree().Count() < 20)
                return;
            poll->stop();
            closed = true;
            added = Tree().Count();
            Click("cmdCancel");
        });
        poll->start(0);
    };
    Make();
    Find<QTimer>("tmrNodes").setInterval(0);
    closeSoon();
    browser->exec();
    EXPECT_TRUE(closed);
    EXPECT_LE(Tree().Count(), added + 2) << "the child in work, with its fake child";
    EXPECT_TRUE(browser->Cancelled());
    EXPECT_FALSE(browser->isVisible());
    EXPECT_FALSE(Find<QWidget>("cmdOk").isEnabled());
    EXPECT_EQ(dialogs.Boxes(), "");

    // Between the enumeration and the first child, where it fails, nothing is said either.
    Show();
    onCall = [this](const QString& call) {
        if (call != Text("open "))
            return;
        browser->reject();
        throw RunTimeError(ErrorNumber::PathNotFound);
    };
    QTest::qWait(50);
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(Browser, LoadsInsideLoadsKeepApart) {
    for (int index = 0; index < 30; ++index)
        network.AddNode(Text("\\\\T"), NetEnum::DisplayShare,
                        Text("\\\\T\\") + QString::number(index));
    Open();
    ExpandAll({"Net", "WG"});
    // \\T is expanded while \\S is being read, Lone (with nothing below it) while \\T is.
    AtYieldAfter("open \\\\S", [this] {
        EXPECT_EQ(browser->cursor().shape(), Qt::WaitCursor);
        EXPECT_TRUE(IsShown("picProg"));
        AtYieldAfter("open \\\\T", [this] { Expand("Lone"); });
        Expand("\\\\T");
    });
    Expand("\\\\S");
    EXPECT_EQ(Children("\\\\S"), "D+ E+ P");
    EXPECT_EQ(Tree().Children(Text("??\\\\T")).size(), 30);
    EXPECT_EQ(Children("Lone"), "");
    EXPECT_EQ(browser->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(Browser, ANodeExpandedAgainWhileItLoadsIsReadOnce) {
    for (int passes = 1; passes <= 12; ++passes) {
        Open();
        calls.clear();
        dialogs.Take();
        QTimer user;
        QObject::connect(&user, &QTimer::timeout, browser.get(), [&, passed = 0]() mutable {
            if (++passed != passes)
                return;
            user.stop();
            Press(Qt::Key_Left);
            Press(Qt::Key_Right);
        });
        Tree().SetSelected(Text("??Net"));
        user.start(0);
        Press(Qt::Key_Right);
        EXPECT_EQ(Children("Net"), "WG+") << passes;
        EXPECT_EQ(calls.count(Text("open Net")), 1) << passes;
        // The outer load may find its fake child gone, and says so.
        EXPECT_LE(dialogs.Shown.size(), 1) << passes;
    }
}

TEST_F(Browser, CloseDuringAnExpansionEndsIt) {
    for (int index = 0; index < 200; ++index)
        network.AddNode(Text("Net"), NetEnum::DisplayDomain, QString::number(index));
    Open();
    AtYieldAfter("print Net", [this] { browser->close(); });
    Expand("Net");
    EXPECT_FALSE(browser->isVisible());
    EXPECT_EQ(Tree().Children(Text("??Net")).size(), 1);
    EXPECT_EQ(Tree().Tag(Text("??Net")), Text("N"));
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(Browser, WritesItsLog) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(Text("Netrove.log"));
    log.Open(path);
    settings.Troubleshooting = 1;
    Open();
    Expand("Net");
    log.Close();
    const QByteArray lines = ReadFile(path).replace("\r\n", "\n");
    EXPECT_TRUE(lines.startsWith("LOAD - ROOT\nRemote Name: \nResource Type: 0\n"));
    EXPECT_EQ(lines.count("LOAD - CHILDREN\n"), 2);
    EXPECT_TRUE(lines.endsWith("NODECLICK\nRemote Name: WG\nResource Type: 1\n"
                               "Resource Type Name: Domain\nProvider: Memory\n \n"));
}

TEST_F(Browser, FollowsItsSize) {
    Open();
    browser->resize(10, 10);
    EXPECT_EQ(browser->frameGeometry().size(), QSize(306, 350)) << "no smaller";
    for (const QSize size : {QSize(306, 350), QSize(700, 600)}) {
        browser->resize(size);
        const QRect ok = Find<QWidget>("cmdOk").geometry();
        const QRect cancel = Find<QWidget>("cmdCancel").geometry();
        const QRect progress = Find<QWidget>("picProg").geometry();
        EXPECT_EQ(Tree().geometry(), QRect(0, 0, size.width(), size.height() - 20 - ok.height()));
        EXPECT_TRUE(browser->rect().contains(ok.united(cancel).united(progress)));
        EXPECT_FALSE(ok.intersects(cancel) || ok.intersects(Tree().geometry()));
        EXPECT_LE(std::abs(progress.center().x() - size.width() / 2), 1);
    }
}

} // namespace
} // namespace netrove
