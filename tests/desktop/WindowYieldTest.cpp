#include "desktop/WindowYield.h"

#include "controls/DisplayTimer.h"
#include "runtime/RunTimeError.h"
#include "runtime/Yield.h"

#include <QCursor>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>
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
    void paintEvent(QPaintEvent* /*event*/) override {
        ++Paints;
        if (OnPaint)
            OnPaint();
    }
    void mouseMoveEvent(QMouseEvent* /*event*/) override {
        ++Moves;
        if (OnMove)
            OnMove();
    }
};

/// A window with a button that stays alive during waits, another one, a text, a shortcut, and
/// nothing on its right.
class WindowYieldTest : public testing::Test {
protected:
    WindowYieldTest() {
        SetYieldAlways(true);
        window.setMouseTracking(true);
        window.resize(300, 100);
        other.setFocusPolicy(Qt::NoFocus);
        live.setGeometry(0, 0, 100, 50);
        other.setGeometry(100, 0, 100, 50);
        text.setGeometry(0, 50, 100, 30);
        QObject::connect(&live, &QPushButton::clicked, &window, [this] { events.append(u'L'); });
        QObject::connect(&other, &QPushButton::clicked, &window, [this] { events.append(u'o'); });
        QObject::connect(&shortcut, &QShortcut::activated, &window,
                         [this] { events.append(u's' + text.text()); });
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        Serve([&] { return window.Paints > 0; });
        window.Paints = 0;
        text.setFocus();
        yield.SetAbandon(live, [this] { return events.contains(u'L'); });
    }
    ~WindowYieldTest() override { SetYieldAlways(false); }

    /// Puts a move of the mouse into the queue of input, as the window system does.
    void MoveMouse() {
        const QPoint one = window.mapToGlobal(QPoint(250, 20));
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

    // What the window system does.
    void Mouse(QEvent::Type type, QPoint place) {
        const bool isUp = type == QEvent::MouseButtonRelease;
        qt_handleMouseEvent(window.windowHandle(), place, window.mapToGlobal(place),
                            isUp ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton, type,
                            Qt::NoModifier, time_ += 1000);
    }
    void ClickAt(QPoint place) {
        Mouse(QEvent::MouseButtonPress, place);
        Mouse(QEvent::MouseButtonRelease, place);
    }
    void Wheel(QPoint place) {
        QWheelEvent event(place, window.mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window.windowHandle(), &event);
    }
    void Press(int key, const char* typed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
            qt_handleKeyEvent(window.windowHandle(), type, key, modifiers,
                              QString::fromUtf8(typed));
    }
    /// Some passes of a wait during which the input comes; gives whether it is to go on.
    bool Wait(const std::function<void()>& input) {
        QMetaObject::invokeMethod(&window, input, Qt::QueuedConnection);
        bool goesOn = true;
        for (int pass = 0; pass < 5; ++pass)
            goesOn = WhileWaiting();
        return goesOn;
    }

    WindowYield yield;
    Window window;
    QPushButton live{QStringLiteral("&Live"), &window};
    QPushButton other{QStringLiteral("&Other"), &window};
    QLineEdit text{&window};
    QShortcut shortcut{QKeySequence(Qt::Key_F5), &window};
    QString events; ///< what the handlers have seen

private:
    static inline int time_ = 1000; ///< milliseconds; clicks are no double clicks
};

TEST_F(WindowYieldTest, AWaitPaintsAndKeepsTheRestForTheNextYield) {
    bool ticked = false;
    QTimer::singleShot(1, &window, [&] { ticked = true; });
    int shown = 0;
    DisplayTimer display;
    display.setSingleShot(true);
    display.callOnTimeout([&] { ++shown; });
    display.start(1);
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
    EXPECT_EQ(shown, 1) << "what a view has to show doesn't wait";

    window.OnPaint = {};
    EXPECT_TRUE(Serve([&] { return window.Moves == 1 && ticked; }));
    EXPECT_EQ(shown, 1);
}

TEST_F(WindowYieldTest, ComesLaterAndInItsOrder) {
    EXPECT_TRUE(Wait([this] {
        Press(Qt::Key_A, "a");
        ClickAt({150, 20});
        Press(Qt::Key_F5, "");
        Press(Qt::Key_B, "b");
    }));
    EXPECT_TRUE(Wait([this] { Press(Qt::Key_F5, ""); }));
    Press(Qt::Key_F5, ""); // behind the wait, but before a yield
    EXPECT_EQ(events, QString());
    Yield();
    EXPECT_EQ(events, QStringLiteral("osasabsab")) << text.text().toStdString();
    // Without a yield the event loop serves it.
    EXPECT_TRUE(Wait([this] { Press(Qt::Key_C, "c"); }));
    EXPECT_EQ(text.text(), QStringLiteral("ab"));
    QCoreApplication::processEvents();
    EXPECT_EQ(text.text(), QStringLiteral("abc"));
}

TEST_F(WindowYieldTest, OnlyTheButtonAnswers) {
    live.setEnabled(false);
    EXPECT_TRUE(Wait([this] { Press(Qt::Key_L, "l", Qt::AltModifier); }));
    live.setEnabled(true);
    EXPECT_TRUE(Serve([this] { return events == QLatin1String("L"); })) << "kept, and served";
    const std::function<void()> ways[] = {
        [this] {
            EXPECT_TRUE(Wait([this] { Mouse(QEvent::MouseButtonPress, {50, 20}); }));
            Wait([this] { Mouse(QEvent::MouseButtonRelease, {50, 20}); });
        },
        [this] {
            Wait([this] { Press(Qt::Key_L, "l", Qt::AltModifier); });
            EXPECT_TRUE(live.isDown()) << "it can be seen for a moment";
        },
        [this] {
            live.setFocus();
            Wait([this] { Press(Qt::Key_Space, " "); });
        },
    };
    for (const auto& press : ways) {
        events.clear();
        EXPECT_TRUE(Wait([&] { ClickAt({150, 20}); }));
        press();
        EXPECT_TRUE(Serve([] { return !WhileWaiting(); }, [] {}));
        EXPECT_EQ(events, QStringLiteral("L"));
        Yield();
        EXPECT_EQ(events, QStringLiteral("Lo"));
    }
}

TEST_F(WindowYieldTest, OtherButtonsOnlyLookPressed) {
    const auto wait = [this](QEvent::Type type) {
        EXPECT_TRUE(Wait([this, type] { Mouse(type, {150, 20}); }));
        return other.isDown();
    };
    EXPECT_TRUE(wait(QEvent::MouseButtonPress));
    EXPECT_FALSE(wait(QEvent::MouseButtonRelease));
    EXPECT_EQ(events, QString());
    Yield();
    EXPECT_EQ(events, QStringLiteral("o"));
}

TEST_F(WindowYieldTest, ViewsScrollUnlessAClickComesBefore) {
    QListWidget list(&window);
    list.setGeometry(200, 0, 100, 80);
    for (int row = 0; row < 100; ++row)
        list.addItem(QString::number(row));
    list.show();
    text.setFocus();
    QCoreApplication::processEvents();
    QScrollBar& bar = *list.verticalScrollBar();
    EXPECT_TRUE(Wait([this] { Wheel({220, 40}); }));
    const int wheeled = bar.value();
    EXPECT_GT(wheeled, 0);

    const QPoint below =
        bar.mapTo(&window, QPoint(bar.width() / 2, bar.height() - bar.width() - 4));
    EXPECT_TRUE(Wait([&] { Mouse(QEvent::MouseButtonPress, below); }));
    const int paged = bar.value();
    EXPECT_GT(paged, wheeled);
    EXPECT_TRUE(text.hasFocus()) << "the list's handlers aren't called";
    // The bar has the mouse until the button comes up, wherever that is.
    Mouse(QEvent::MouseButtonRelease, {150, 20});
    EXPECT_EQ(events, QString());

    EXPECT_TRUE(Wait([&] {
        ClickAt({220, 40});
        Wheel({220, 40});
    }));
    EXPECT_EQ(bar.value(), paged) << "the click is for the row that was seen there";
    EXPECT_EQ(list.currentRow(), -1);
    const int clicked = list.indexAt(list.viewport()->mapFrom(&window, QPoint(220, 40))).row();
    Yield();
    EXPECT_EQ(list.currentRow(), clicked);
    EXPECT_GT(bar.value(), paged);
}

TEST_F(WindowYieldTest, AHandlerWithAnEventLoopOfItsOwnLosesNothing) {
    QObject::connect(&shortcut, &QShortcut::activated, &window, [this] {
        QEventLoop inner;
        QTimer::singleShot(20, &inner, &QEventLoop::quit);
        inner.exec();
        events.append(u'e' + text.text());
    });
    EXPECT_TRUE(Wait([this] {
        Press(Qt::Key_F5, "");
        Press(Qt::Key_A, "a");
    }));
    Yield();
    EXPECT_EQ(events, QStringLiteral("sea"));
}

TEST_F(WindowYieldTest, NoWindowIsClosed) {
    EXPECT_TRUE(Wait([this] { window.windowHandle()->close(); }));
    EXPECT_TRUE(window.isVisible());
    Yield();
    EXPECT_FALSE(window.isVisible());
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

} // namespace
} // namespace netrove
