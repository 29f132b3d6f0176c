#pragma once

#include "desktop/MousePress.h"
#include "desktop/ScrollInput.h"

#include <QKeyEvent>

#include <vector>

namespace netrove {

/// What becomes of the user's input during a wait. Served at once is what gives the wait up (the
/// button for it; what closes a dialog that reads from the web) and what changes no more than the
/// part of a view that is seen (its scroll bars, the wheel). Keys that move in a list change its
/// selection, which handlers read: they aren't.
class LiveInput {
public:
    enum class Course { Serve, Keep, Drop };

    void SetButton(QAbstractButton& button) { button_ = &button; }

    /// What becomes of an event; one that it has served by itself is dropped. `press` is the
    /// mouse's with this event, `isNext` tells that nothing is kept that has to be served before.
    [[nodiscard]] Course CourseOf(const QObject& receiver, const QEvent& event,
                                  const MousePress& press, bool isNext);

    /// Whether the key's shortcuts may be tried.
    [[nodiscard]] bool MayTryShortcut(const QObject& window, const QKeyEvent& key) const;

    /// Whether the event goes on with what began during a wait, and has been served.
    bool Continue(const QObject& receiver, const QEvent& event) {
        return scrolling_.Continue(receiver, event);
    }

    /// Lets the buttons go on that a key has pressed: that is a matter of some time.
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
