#include "controls/TreeView.h"

#include "controls/Color.h"
#include "fakes/Text.h"
#include "runtime/ExpectRaised.h"

#include <QAbstractItemModelTester>
#include <QTest>
#include <gtest/gtest.h>

#include <random>

namespace netrove {
namespace {

/// A visible tree: "a" with "a1" and "a2", "b" without children.
class Tree : public testing::Test {
protected:
    void SetUp() override {
        for (const char* key : {"closed", "open"})
            pictures.Add(Text(key), QPixmap(16, 16));
        tree.SetImageList(&pictures);
        Add("", "a");
        Add("a", "a1");
        Add("a", "a2");
        Add("", "b");
        tree.resize(300, 300);
        tree.show();
        tree.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&tree));
        tree.setFocus();
        QObject::connect(&tree, &TreeView::Expand, &tree, [this](const QString& key) {
            expanded.append(key);
            if (onExpand)
                onExpand(key);
        });
    }

    void Add(const char* relative, const char* key) {
        tree.Add(Text(relative), Text(key), Text(key), Text("closed"), Text("open"));
    }

    [[nodiscard]] QModelIndex Index(const char* key) {
        tree.Flush();
        return tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, Text(key), 1,
                                   Qt::MatchExactly | Qt::MatchRecursive)[0];
    }
    [[nodiscard]] QPoint On(const char* key) { return tree.visualRect(Index(key)).center(); }
    [[nodiscard]] QPoint SignOf(const char* key) {
        return {tree.visualRect(Index(key)).left() - tree.indentation() / 2, On(key).y()};
    }
    void Click(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(tree.viewport(), button, {}, place);
    }
    void DoubleClick(const char* key) {
        Click(On(key));
        QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, On(key));
    }
    void Press(Qt::Key key) { QTest::keyClick(&tree, key); }

    ImageList pictures{16};
    TreeView tree;
    QStringList expanded;
    std::function<void(const QString&)> onExpand;
};

TEST_F(Tree, KnowsNodesByTheirKeys) {
    ExpectRaised(
        ErrorNumber::KeyNotUnique, [this] { Add("b", "a1"); }, Text("a1"));
    ExpectRaised(
        ErrorNumber::KeyNotFound, [this] { Add("nobody", "c"); }, Text("nobody"));
    tree.Remove(Text("a"));
    EXPECT_EQ(tree.Children({}), Texts({"b"}));
    Add("b", "a1");
    EXPECT_TRUE(tree.Contains(Text("a1"))) << "the keys below it are free again";
}

/// Whatever is done in whatever order, the view is told a consistent story.
TEST_F(Tree, AnyOrderOfChangesIsToldConsistently) {
    const QAbstractItemModelTester tester(tree.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::mt19937 random(7);
    QStringList keys = {Text("a"), Text("b"), Text("a1"), Text("a2")};
    for (int step = 0; step < 1500; ++step) {
        const auto any = static_cast<qsizetype>(random());
        const QString key = keys.isEmpty() ? QString() : keys[any % keys.size()];
        const auto what = key.isEmpty() ? 4 : random() % 8;
        if (what == 0) {
            tree.Flush();
        } else if (what == 1) {
            tree.Remove(key);
            keys.removeIf([this](const QString& known) { return !tree.Contains(known); });
        } else if (what == 2) {
            tree.SetExpanded(key, random() % 2 == 0);
        } else if (what == 3) {
            tree.EnsureVisible(key);
        } else {
            keys.append(QString::number(step));
            tree.Add(key, keys.last(), Text("x"), Text("closed"), Text("open"));
        }
    }
    tree.Refresh();
    EXPECT_EQ(tree.Count(), keys.size());
    for (const QString& key : keys)
        EXPECT_EQ(tree.Children(tree.Parent(key)).count(key), 1);
}

TEST_F(Tree, TheUserExpandsOneNodeAtATime) {
    Add("a1", "a11");
    Add("a11", "a111");
    Click(SignOf("a"));
    EXPECT_TRUE(tree.Expanded(Text("a")));
    Click(SignOf("a"));
    EXPECT_FALSE(tree.Expanded(Text("a")));
    tree.SetSelected(Text("a"));
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Plus, Qt::Key_Asterisk}) {
        Press(key);
        Press(Qt::Key_Minus);
    }
    DoubleClick("a");
    EXPECT_EQ(expanded, Texts({"a", "a", "a", "a", "a"})) << "none below it";

    tree.EnsureVisible(Text("a111"));
    EXPECT_TRUE(tree.Expanded(Text("a11")));
    tree.SetExpanded(Text("a"), false);
    EXPECT_FALSE(tree.isExpanded(Index("a")));
    EXPECT_EQ(expanded.size(), 5) << "the program's own expansions raise nothing";
    tree.expand(Index("a")); // as a screen reader does
    EXPECT_TRUE(QTest::qWaitFor([this] { return expanded.size() == 6; }, 1000));
}

TEST_F(Tree, HandlersMayChangeTheTreeAndRunTheEventLoop) {
    onExpand = [this](const QString& key) {
        tree.Remove(Text("a1"));
        tree.Remove(Text("a2"));
        tree.Refresh();
        EXPECT_TRUE(tree.Expanded(key)) << "also without children";
        Press(Qt::Key_Down); // the user goes on meanwhile
        QApplication::processEvents();
        Add("a", "new");
    };
    DoubleClick("a");
    EXPECT_EQ(tree.Selected(), Text("b"));
    EXPECT_TRUE(tree.visualRect(Index("new")).isValid()) << "still expanded";

    // A node that its own handler removes.
    onExpand = [this](const QString& key) { tree.Remove(key); };
    Add("b", "b1");
    Click(SignOf("b"));
    EXPECT_FALSE(tree.Contains(Text("b")));
}

TEST(LegibleTest, MarksCanBeReadOnAnyDesktop) {
    EXPECT_EQ(Legible(Qt::red, Qt::white), QColor(Qt::red));
    for (const QColor background : {QColor(0x23, 0x26, 0x29), QColor(255, 120, 120)}) {
        const QColor shown = Legible(Qt::red, background);
        EXPECT_GT(std::abs(shown.lightnessF() - background.lightnessF()), 0.2F);
        EXPECT_NE(shown, QColor(Qt::white)) << "still reddish";
    }
}

} // namespace
} // namespace netrove
