#include "platform/desktop/WindowYield.h"

#include "runtime/RunTimeError.h"
#include "runtime/Yield.h"

#include <QCursor>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include <functional>

namespace netrove {
namespace {

class Window : public QWidget {
public:
    int Paints = 0;
    int Moves = 0;
    std::function<void()> OnPaint;
    std::function<void()> OnMove;

protected:
    void paintEvent(QPaintEvent* event) override {
        static_cast<void>(event);
        ++Paints;
        if (OnPaint)
            OnPaint();
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        static_cast<void>(event);
        ++Moves;
        if (OnMove)
            OnMove();
    }
};

class WindowYieldTest : public testing::Test {
protected:
    WindowYieldTest() {
        SetYieldAlways(true);
        window.setMouseTracking(true);
        window.resize(100, 100);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        Serve([&] { return window.Paints > 0; });
        window.Paints = 0;
    }
    ~WindowYieldTest() override { SetYieldAlways(false); }

    /// Puts a move of the mouse into the queue of input, as the window system does.
    void MoveMouse() {
        const QPoint one = window.mapToGlobal(QPoint(20, 20));
        QCursor::setPos(QCursor::pos() == one ? one + QPoint(1, 0) : one);
    }

    /// Makes passes until the condition holds; false after five seconds.
    template <typename Condition>
    static bool Serve(Condition condition, const std::function<void()>& pass = Yield) {
        QElapsedTimer clock;
        clock.start();
        while (!condition() && clock.elapsed() < 5000)
            pass();
        return condition();
    }

    WindowYield yield;
    Window window;
};

TEST_F(WindowYieldTest, AWaitPaintsAndKeepsTheRestForTheNextYield) {
    bool ticked = false;
    QTimer::singleShot(1, &window, [&] { ticked = true; });
    MoveMouse();
    ASSERT_EQ(window.Moves, 0);
    window.update();
    bool wasWaiting = false;
    window.OnPaint = [&] {
        wasWaiting = yield.Waiting();
        Yield();
        EXPECT_TRUE(WhileWaiting());
    };

    EXPECT_TRUE(Serve([&] { return window.Paints > 0; }, [] { EXPECT_TRUE(WhileWaiting()); }));
    QElapsedTimer clock; // long enough for the timer to be due
    clock.start();
    EXPECT_TRUE(Serve([&] { return clock.elapsed() > 20; }, [] { EXPECT_TRUE(WhileWaiting()); }));
    EXPECT_TRUE(wasWaiting);
    EXPECT_FALSE(yield.Waiting());
    EXPECT_EQ(window.Moves, 0);
    EXPECT_FALSE(ticked);

    window.OnPaint = {};
    EXPECT_TRUE(Serve([&] { return window.Moves == 1 && ticked; }));
}

TEST_F(WindowYieldTest, AFailingHandlerEndsNeitherTheJobNorTheEventLoop) {
    window.OnMove = [] { throw RunTimeError(ErrorNumber::TypeMismatch); };
    MoveMouse();
    EXPECT_TRUE(Serve([&] { return window.Moves == 1; }));

    window.OnMove = {};
    MoveMouse();
    window.update();
    EXPECT_TRUE(Serve([&] { return window.Moves == 2 && window.Paints > 0; }));
}

TEST_F(WindowYieldTest, PassesComeBackAtItsEnd) {
    int passes = 0;
    SetYieldPass([&] { ++passes; });
    { const WindowYield inner; }
    Yield();
    EXPECT_EQ(passes, 1);
}

} // namespace
} // namespace netrove
