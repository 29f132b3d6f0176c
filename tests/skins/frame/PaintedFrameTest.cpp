#include "skins/frame/PaintedFrame.h"

#include "controls/Color.h"
#include "fakes/Find.h"
#include "skins/frame/PlainSkin.h"

#include <QAbstractButton>
#include <QDialog>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>
#include <gtest/gtest.h>

namespace netrove {
namespace {

constexpr int TitleHeight = PlainSkin::RowHeight;
constexpr QMargins Frame(PlainSkin::Border, TitleHeight, PlainSkin::Border, PlainSkin::Border);

/// A painted frame around a plain window, shown; `insisted` is a frame that the desktop keeps.
class PaintedFrameTest : public testing::Test {
protected:
    void SetUp() override { Open(); }

    void Open() {
        window.show();
        Activate();
    }
    void Activate() {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void Attach() { frame.Attach(window, skin.configuration); }

    /// The window with its frame, whosever that is.
    QRect Outer() const { return window.windowHandle()->frameGeometry(); }
    QMargins Standard() const { return window.windowHandle()->frameMargins(); }

    QWidget& Part(const char* name) const { return FindIn(window, name); }
    void Click(const char* name, QPoint at = {}) const {
        QTest::mouseClick(&Part(name), Qt::LeftButton, {}, at);
    }
    /// With the button down over the part, from one place to another in its window.
    static void Drag(QWidget& part, const QPoint& from, const QPoint& by) {
        const QPoint onScreen = part.window()->mapToGlobal(from);
        QTest::mousePress(&part, Qt::LeftButton, {}, part.mapFrom(part.window(), from));
        // The part moves with the window.
        for (const QPoint& place : {onScreen + by / 2, onScreen + by})
            QTest::mouseMove(&part, part.mapFromGlobal(place));
        QTest::mouseRelease(&part, Qt::LeftButton, {}, part.mapFromGlobal(onScreen + by));
    }

    PlainSkin skin;
    PlainWindow window;
    QMargins insisted;
    PaintedFrame frame{[this](const QWindow& shown) {
        return insisted.isNull() ? shown.frameMargins() : insisted;
    }};
};

TEST_F(PaintedFrameTest, TakesTheStandardFramesPlaceAndGivesItBack) {
    const QRect outer = Outer();
    const QMargins standard = Standard();
    ASSERT_FALSE(standard.isNull()) << "There is no frame to be taken away.";
    const WId id = window.winId();
    for (int round = 0; round < 2; ++round) {
        Attach();
        EXPECT_TRUE(QTest::qWaitFor([&] { return Outer() == outer; }));
        EXPECT_TRUE(Standard().isNull());
        EXPECT_EQ(window.geometry(), outer);
        EXPECT_EQ(window.contentsMargins(), Frame);
        EXPECT_EQ(Part("frameTitleBar").geometry(), QRect(0, 0, outer.width(), TitleHeight));
        EXPECT_EQ(window.menuBar()->geometry().top(), TitleHeight);
        frame.Detach();
        EXPECT_TRUE(QTest::qWaitFor([&] { return Outer() == outer && Standard() == standard; }));
        EXPECT_TRUE(window.contentsMargins().isNull());
        EXPECT_FALSE(Part("frameTitleBar").isVisible());
    }
    EXPECT_EQ(window.winId(), id);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(PaintedFrameTest, LeavesOnlyColoursWhereTheDesktopKeepsItsFrame) {
    insisted = QMargins(2, 20, 2, 2);
    Attach();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Part("frameTitleBar").isVisible(); }));
    EXPECT_TRUE(window.contentsMargins().isNull());
    EXPECT_EQ(frame.ResolvedBackColor(), skin.configuration.BarColor4);
    EXPECT_EQ(FromColor(window.menuBar()->palette().color(QPalette::Window)),
              skin.configuration.BarColor4);
}

/// The frame used with keys and mouse.
class FrameInputTest : public PaintedFrameTest {
protected:
    void SetUp() override {
        window.setMinimumSize(200, 150);
        Attach();
        Open();
        window.setGeometry(before);
    }

    QMenu& Menu() const { return FindIn<QMenu>(window, "frameSystemMenu"); }
    QAction& Item(const char* text) const {
        const QList<QAction*> items = Menu().actions();
        return **std::find_if(items.begin(), items.end(),
                              [&](const QAction* item) { return item->text() == Text(text); });
    }

    void Pick(const char* text) {
        QTest::mouseClick(&Menu(), Qt::LeftButton, {}, Menu().actionGeometry(&Item(text)).center());
        Activate();
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&window, key, modifiers);
    }

    const QRect before{100, 100, 400, 300};
    const QPoint icon{8, 20};
};

TEST_F(FrameInputTest, MovesByItsTitleAndResizesByEveryEdgeAndCorner) {
    const struct {
        const char* part;
        QPoint from;
        QMargins moved; ///< the edges that go along when it is dragged by (10, 20)
        Qt::CursorShape cursor;
    } cases[] = {
        {"frameTitleBar", {150, 20}, {10, 20, 10, 20}, Qt::ArrowCursor},
        {"frameEdgeLeft", {1, 100}, {10, 0, 0, 0}, Qt::SizeHorCursor},
        {"frameEdgeRight", {398, 100}, {0, 0, 10, 0}, Qt::SizeHorCursor},
        {"frameEdgeTop", {200, 1}, {0, 20, 0, 0}, Qt::SizeVerCursor},
        {"frameEdgeBottom", {200, 298}, {0, 0, 0, 20}, Qt::SizeVerCursor},
        {"frameEdgeTop", {3, 1}, {10, 20, 0, 0}, Qt::SizeFDiagCursor},
        {"frameEdgeRight", {398, 8}, {0, 20, 10, 0}, Qt::SizeBDiagCursor},
        {"frameEdgeLeft", {1, 292}, {10, 0, 0, 20}, Qt::SizeBDiagCursor},
        {"frameEdgeBottom", {392, 298}, {0, 0, 10, 20}, Qt::SizeFDiagCursor},
    };
    for (const auto& [name, from, moved, cursor] : cases) {
        window.setGeometry(before);
        QWidget& part = Part(name);
        QTest::mouseMove(&part, part.mapFrom(&window, from));
        EXPECT_EQ(part.cursor().shape(), cursor) << name;
        Drag(part, from, {10, 20});
        EXPECT_EQ(window.geometry(),
                  before.adjusted(moved.left(), moved.top(), moved.right(), moved.bottom()))
            << name << from.x();
    }
    window.setGeometry(before);
    Drag(Part("frameTitleBar"), {150, 20}, {3, 0}); // a click with an unsteady hand
    EXPECT_EQ(window.geometry(), before);
    // The far edge stays where it is when the smallest size is reached.
    Drag(Part("frameEdgeTop"), {3, 1}, {900, 900});
    EXPECT_EQ(window.geometry(), QRect(300, 250, 200, 150));
}

TEST_F(FrameInputTest, ClosesByADoubleClickOnTheIconAndByKey) {
    Click("frameTitleBar", icon);
    // The menu has the mouse now.
    QTest::mousePress(&Menu(), Qt::LeftButton, {},
                      Menu().mapFromGlobal(Part("frameTitleBar").mapToGlobal(icon)));
    EXPECT_FALSE(Menu().isVisible() || window.isVisible());
    Open();
    QTest::mouseRelease(&window, Qt::LeftButton);
    Press(Qt::Key_F4, Qt::AltModifier);
    EXPECT_FALSE(window.isVisible());
}

} // namespace
} // namespace netrove
