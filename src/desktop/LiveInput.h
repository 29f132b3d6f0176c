#pragma once

#include "desktop/MousePress.h"
#include "desktop/ScrollInput.h"

#include <QKeyEvent>

#include <vector>

namespace netrove {

/// Decides what becomes of the user's input during a wait. Input is served at once if it abandons
/// the wait (by the button for that, or by closing a dialog that reads from the web), or if it
/// changes only which part of a view is visible (by the scroll bars or the wheel). Keys that move
/// in a list aren't: they change its selection, which handlers read.
class LiveInput {
public:
    enum class Course { Serve, Keep, Drop };

    void SetButton(QAbstractButton& button) { button_ = &button; }

    /// What becomes of an event; one that this call has served itself is to be dropped. `press` is
    /// the mouse's press, including this event; `isNext` means that nothing is kept that has to be
    /// served first.
    [[nodiscard]] Course CourseOf(const QObject& receiver, const QEvent& event,
                                  const MousePress& press, bool isNext);

    /// Whether the key's shortcuts may be tried.
    [[nodiscard]] bool MayTryShortcut(const QObject& window, const QKeyEvent& key) const;

    /// Whether the event continues a drag of a scroll bar that began during a wait; if so, it has
    /// been served.
    bool Continue(const QObject& receiver, const QEvent& event) {
        return scrolling_.Continue(receiver, event);
    }

    /// Lets buttons that a key has pressed come up again: a timer of theirs does that, after some
    /// time.
    void GoOn() const;

private:
    [[nodiscard]] std::vector<QAbstractButton*> Buttons() const;
    [[nodiscard]] bool IsLive(const QWidget* widget) const;
    [[nodiscard]] bool IsKeyOfButton(const QObject& window, const QKeyEvent& key) const;
    [[nodiscard]] bool Presses(const QObject& window, const QKeyEvent& key) const;
    [[nodiscard]] bool Serves(const QObject& receiver, const QEvent& event, const MousePress& press,
                              bool isNow) const;

    QPointer<QAbstractButton> button_;
    ScrollInput scrolling_;
};

} // namespace netrove
