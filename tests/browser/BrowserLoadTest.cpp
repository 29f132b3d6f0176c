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
    dialog->show();
    EXPECT_FALSE(IsShown("tvwNetwork") || IsEnabled("cmdOk"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !calls.isEmpty(); }));
    EXPECT_GE(clock.elapsed(), 1000);

    Make();
    calls.clear();
    Find<QTimer>("tmrNodes").setInterval(20);
    dialog->show();
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    QTest::qWait(50);
    EXPECT_EQ(calls, QStringList()) << "closed before that, it asks nobody";
    EXPECT_TRUE(dialog->Cancelled());
    EXPECT_FALSE(dialog->Result());
}

TEST_F(Browser, FirstLoadShowsItsProgressAndThenTheTree) {
    Show();
    QStringList seen;
    QTimer observer;
    observer.callOnTimeout([&] {
        if (IsShown("tvwNetwork"))
            return;
        EXPECT_FALSE(IsEnabled("cmdOk"));
        const QString state = (IsShown("lblWait") ? Text("wait ") : Text("- ")) +
                              LabelText("lblProg") + u' ' + LabelText("lblProcPerc") + u' ' +
                              LabelText("lblAddNode");
        if (seen.isEmpty() || seen.last() != state)
            seen.append(state);
    });
    observer.start(0);
    ASSERT_TRUE(QTest::qWaitFor([this] { return IsEnabled("cmdOk"); }));
    observer.stop();
    const QString half = Text("- ") + QString(18, u'|'); // of 17.5
    const QString full = Text("- ") + QString(35, u'|');
    EXPECT_EQ(seen.mid(seen.indexOf(Text("wait  0% "))),
              Texts({"wait  0% ", "-  0% ", "-  0% Adding Net"}) +
                  QStringList({half + Text(" 50% Adding Net"), half + Text(" 50% Adding Lone"),
                               full + Text(" 100% Done")}));

    EXPECT_FALSE(IsShown("lblWait") || IsShown("lblAddNode") || IsShown("picProg"));
    EXPECT_EQ(dialog->focusWidget(), &Tree());
    EXPECT_EQ(Tree().Text(Text("??_ROOT")), Text("Entire Network"));
    EXPECT_TRUE(Tree().Expanded(Text("??_ROOT")));
    EXPECT_EQ(Tree().Image(Text("??Net")), Text("network"));
    EXPECT_EQ(Children("_ROOT"), "Net+ Lone+");
    EXPECT_EQ(calls, Texts({"open ", "print "})) << "and nothing below";
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

TEST_F(Browser, TellsWhatFailed) {
    network.Unlistable = {QString()};
    Open();
    EXPECT_EQ(calls, Texts({"open "})) << "asked once";
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
    EXPECT_EQ(dialog->cursor().shape(), Qt::ArrowCursor);
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
    Make();
    Find<QTimer>("tmrNodes").setInterval(0);
    int added = 0;
    QTimer user; // in the midst of the children
    user.callOnTimeout([&] {
        if (added > 0 || Tree().Count() < 20)
            return;
        added = Tree().Count();
        Click("cmdCancel");
    });
    user.start(0);
    dialog->exec();
    EXPECT_GT(added, 0);
    EXPECT_LE(Tree().Count(), added + 2) << "the child in work, with its fake child";
    EXPECT_TRUE(dialog->Cancelled());
    EXPECT_FALSE(dialog->isVisible() || IsEnabled("cmdOk"));
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
        EXPECT_EQ(dialog->cursor().shape(), Qt::WaitCursor);
        EXPECT_TRUE(IsShown("picProg"));
        Press(Qt::Key_Left); // \\S itself, once more
        Press(Qt::Key_Right);
        AtYieldAfter("open \\\\T", [this] { Expand("Lone"); });
        Expand("\\\\T");
    });
    Expand("\\\\S");
    EXPECT_EQ(Children("\\\\S"), "D+ E+ P");
    EXPECT_EQ(calls.count(Text("open \\\\S")), 1);
    EXPECT_EQ(Tree().Children(Text("??\\\\T")).size(), 30);
    EXPECT_EQ(Children("Lone"), "");
    EXPECT_EQ(dialog->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(Browser, CloseDuringAnExpansionEndsIt) {
    for (int index = 0; index < 200; ++index)
        network.AddNode(Text("Net"), NetEnum::DisplayDomain, QString::number(index));
    Open();
    AtYieldAfter("print Net", [this] { dialog->close(); });
    Expand("Net");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(Tree().Children(Text("??Net")).size(), 1);
    EXPECT_EQ(Tree().Tag(Text("??Net")), Text("N"));
    EXPECT_EQ(dialogs.Boxes(), "");
}

} // namespace
} // namespace netrove
