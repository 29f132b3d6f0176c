#include "skins/frame/PaintedFrame.h"
#include "skins/frame/PlainSkin.h"

#include <QShortcut>
#include <QSignalSpy>

namespace netrove {
namespace {

class FrameInputTest : public FrameTest {
protected:
    void SetUp() override {
        window.setMinimumSize(200, 150);
        window.show();
        Attach();
        Activate();
        window.setGeometry(100, 100, 400, 300);
    }

    QMenu& Menu() const { return FindIn<QMenu>(window, "frameSystemMenu"); }

    static QAction& Item(const QMenu& menu, const char* text) {
        for (QAction* action : menu.actions()) {
            if (action->text() == QLatin1String(text))
                return *action;
        }
        qFatal("There is no item %s.", text);
    }

    void Pick(const char* text) {
        QTest::mouseClick(&Menu(), Qt::LeftButton, {},
                          Menu().actionGeometry(&Item(Menu(), text)).center());
        Activate();
    }

    /// With the button down over the part, from one place to another in the window.
    void Drag(const char* name, const QPoint& from, const QPoint& by) {
        QWidget& part = Part(name);
        const QPoint start = part.mapFrom(&window, from);
        const QPoint onScreen = window.mapToGlobal(from);
        QTest::mousePress(&part, Qt::LeftButton, {}, start);
        // The part moves with the window.
        QTest::mouseMove(&part, part.mapFromGlobal(onScreen + by / 2));
        QTest::mouseMove(&part, part.mapFromGlobal(onScreen + by));
        QTest::mouseRelease(&part, Qt::LeftButton, {}, part.mapFromGlobal(onScreen + by));
    }
};

TEST_F(FrameInputTest, MovesByTheTitleBar) {
    Drag("frameTitleBar", {150, 20}, {40, 30});
    EXPECT_EQ(window.geometry(), QRect(140, 130, 400, 300));
    Drag("frameTitleBar", {150, 20}, {3, 0}); // a click with an unsteady hand
    EXPECT_EQ(window.geometry(), QRect(140, 130, 400, 300));
}

TEST_F(FrameInputTest, ResizesByEveryEdgeAndCorner) {
    const struct {
        const char* part;
        QPoint from;
        QMargins moved; ///< the edges that go along when it is dragged by (10, 20)
        Qt::CursorShape cursor;
    } cases[] = {
        {"frameEdgeLeft", {1, 100}, {10, 0, 0, 0}, Qt::SizeHorCursor},
        {"frameEdgeRight", {398, 100}, {0, 0, 10, 0}, Qt::SizeHorCursor},
        {"frameEdgeTop", {200, 1}, {0, 20, 0, 0}, Qt::SizeVerCursor},
        {"frameEdgeBottom", {200, 298}, {0, 0, 0, 20}, Qt::SizeVerCursor},
        {"frameEdgeTop", {3, 1}, {10, 20, 0, 0}, Qt::SizeFDiagCursor},
        {"frameEdgeRight", {398, 8}, {0, 20, 10, 0}, Qt::SizeBDiagCursor},
        {"frameEdgeLeft", {1, 292}, {10, 0, 0, 20}, Qt::SizeBDiagCursor},
        {"frameEdgeBottom", {392, 298}, {0, 0, 10, 20}, Qt::SizeFDiagCursor},
    };
    const QRect before(100, 100, 400, 300);
    for (const auto& [name, from, moved, cursor] : cases) {
        window.setGeometry(before);
        QWidget& part = Part(name);
        QTest::mouseMove(&part, part.mapFrom(&window, from));
        EXPECT_EQ(part.cursor().shape(), cursor) << name;
        Drag(name, from, {10, 20});
        EXPECT_EQ(window.geometry(),
                  before.adjusted(moved.left(), moved.top(), moved.right(), moved.bottom()))
            << name << from.x();
    }
    // The far edge stays where it is when the smallest size is reached.
    window.setGeometry(100, 100, 400, 300);
    Drag("frameEdgeTop", {3, 1}, {900, 900});
    EXPECT_EQ(window.geometry(), QRect(300, 250, 200, 150));
}

TEST_F(FrameInputTest, OpensTheSystemMenu) {
    QTest::mouseClick(&Part("frameTitleBar"), Qt::LeftButton, {}, QPoint(8, 20));
    EXPECT_TRUE(Menu().isVisible());
    EXPECT_FALSE(Item(Menu(), "&Restore").isEnabled());
    EXPECT_TRUE(Item(Menu(), "&Size").isEnabled());
    Pick("Ma&ximize");
    EXPECT_TRUE(window.isMaximized());

    QTest::keyClick(&window, Qt::Key_Space, Qt::AltModifier);
    EXPECT_TRUE(Menu().isVisible());
    EXPECT_FALSE(Item(Menu(), "&Move").isEnabled());
    EXPECT_FALSE(Item(Menu(), "Ma&ximize").isEnabled());
    QTest::keyClick(&Menu(), Qt::Key_R);
    EXPECT_FALSE(window.isMaximized());

    QContextMenuEvent asked(QContextMenuEvent::Mouse, QPoint(150, 20), QPoint(250, 120));
    QCoreApplication::sendEvent(&Part("frameTitleBar"), &asked);
    EXPECT_TRUE(Menu().isVisible());
    QTest::keyClick(&Menu(), Qt::Key_C);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FrameInputTest, ClosesByADoubleClickOnTheIconAndByKey) {
    const QPoint icon(8, 20);
    QTest::mouseClick(&Part("frameTitleBar"), Qt::LeftButton, {}, icon);
    ASSERT_TRUE(Menu().isVisible());
    // The menu has the mouse now.
    QTest::mousePress(&Menu(), Qt::LeftButton, {},
                      Menu().mapFromGlobal(Part("frameTitleBar").mapToGlobal(icon)));
    EXPECT_FALSE(Menu().isVisible());
    EXPECT_FALSE(window.isVisible());

    window.show();
    Activate();
    QTest::mouseRelease(&window, Qt::LeftButton);
    QTest::keyClick(&window, Qt::Key_F4, Qt::AltModifier);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FrameInputTest, MovesAndResizesByKeys) {
    const QShortcut shortcut(Qt::Key_Return, &window);
    const QSignalSpy pressed(&shortcut, &QShortcut::activated);

    QTest::keyClick(&window, Qt::Key_Space, Qt::AltModifier);
    Pick("&Move");
    QTest::keyClick(&window, Qt::Key_Right);
    QTest::keyClick(&window, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(window.geometry(), QRect(108, 101, 400, 300));
    QTest::keyClick(&window, Qt::Key_Return);
    QTest::keyClick(&window, Qt::Key_Left);
    EXPECT_EQ(window.geometry(), QRect(108, 101, 400, 300));
    EXPECT_EQ(pressed.count(), 0); // the key was for the frame
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_EQ(pressed.count(), 1);

    QTest::keyClick(&window, Qt::Key_Space, Qt::AltModifier);
    Pick("&Size");
    QTest::keyClick(&window, Qt::Key_Left);
    QTest::keyClick(&window, Qt::Key_Up);
    EXPECT_EQ(window.geometry(), QRect(108, 101, 392, 292));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(window.geometry(), QRect(108, 101, 400, 300));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

} // namespace
} // namespace netrove
