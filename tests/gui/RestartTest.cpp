#include "controls/TreeView.h"
#include "gui/WindowTest.h"
#include "options/frmOpts.h"

#include <QWindow>

namespace netrove {
namespace {

/// Moves a window that is hidden, as a window manager can that takes its frame away.
struct MovesHidden : QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide)
            static_cast<QWidget*>(watched)->windowHandle()->setPosition(1, 1);
        return false;
    }
};

/// Excludes a share in the browser. Right opens a node, down goes to its first child.
void ExcludeShare(frmNWDialog& browser) {
    auto& tree = FindIn<TreeView>(browser, "tvwNetwork");
    tree.SetSelected(Text("??Net"));
    for (int level = 0; level < 3; ++level) {
        QTest::keyClick(&tree, Qt::Key_Right);
        QTest::keyClick(&tree, Qt::Key_Down);
    }
    QTest::keyClick(&tree, Qt::Key_Down);
    FindIn<QAction>(browser, "mnuExcNode").trigger();
    EXPECT_TRUE(tree.Bold(Text("??\\\\S\\E")));
    QTest::keyClick(&tree, Qt::Key_Up);
    QTest::mouseClick(&FindIn(browser, "cmdOk"), Qt::LeftButton);
}

TEST_F(WindowTest, StartsAgainAsItWas) {
    for (const char* path : {"\\\\S\\D\\song", "\\\\S\\E\\song"})
        AddFile(path, 1500000);
    MovesHidden movesHidden;
    Open();
    EXPECT_EQ(window->centralWidget()->size(), QSize(728, 419)) << "10920 by 6285 twips";
    Browse(ExcludeShare);
    EXPECT_EQ(StartNodeText(), Text("\\\\S\\D"));
    Search("*.mp3");
    Search("song,copy");
    InDialog<frmOpts>("mnuOpts", [](frmOpts& options) {
        FindIn<QAbstractButton>(options, "optB").click();
        QTest::keyClick(&options, Qt::Key_Return);
    });
    EXPECT_EQ(Column(Results(), 2), "1.4305") << "rows keep their texts";
    ListHeader& header = *Results().Header();
    const QPoint edge(header.sectionViewportPosition(1) + header.sectionSize(1) - 1,
                      header.height() / 2);
    DragMouse(*header.viewport(), edge, edge + QPoint(40, 0));
    const int width = Results().ColumnWidth(2);
    EXPECT_GT(width, 1500);
    window->resize(760, 480);
    window->move(20, 30);
    QCoreApplication::processEvents();
    const QRect place = window->windowHandle()->frameGeometry();
    EXPECT_FALSE(QFile::exists(IniFileName(folder.path()))) << "written at the end only";
    for (int round = 0; round < 2; ++round) {
        window->installEventFilter(&movesHidden);
        EXPECT_TRUE(window->close());
        Make();
        Open();
        EXPECT_EQ(window->windowHandle()->frameGeometry(), place);
        EXPECT_EQ(Results().ColumnWidth(2), width);
        EXPECT_EQ(Downloads().ColumnWidth(2), width);
        EXPECT_EQ(Downloads().HeaderText(3), Text("Size (B)"));
        auto& input = Find<QComboBox>("LstSearchFor");
        EXPECT_EQ(input.currentText(), Text("song,copy"));
        EXPECT_EQ(input.itemText(0) + input.itemText(1), Text("song,copy*.mp3"));
        // The start node is the root again, and what was excluded is passed over.
        EXPECT_EQ(StartNodeText(), Text("[Root]"));
        Click("cmdStartSearch");
        EXPECT_EQ(Rows(), Texts({"\\\\S\\D\\song"}));
        EXPECT_EQ(Column(Results(), 2), "1500000");
    }
    EXPECT_EQ(dialogs.Boxes(), "");
}

} // namespace
} // namespace netrove
