#pragma once

#include "desktop/HeldInput.h"

#include <functional>

namespace netrove {

/// What Yield() and WhileWaiting() do in a program with windows, as long as this object lives; the
/// passes from before come back with its end. For the thread of the windows.
///
/// A yield makes one pass of the event loop: input, painting, timers. Failures of handlers don't
/// come through to the job that yields: DesktopApplication ends them.
///
/// A wait serves the display, and what gives it up:
/// - Windows are painted, resized and uncovered, and answer the window manager. Views show what has
///   come into them: of the timers those fire that are for the display alone (DisplayTimer).
/// - The wheel and the scroll bars scroll views, and a push button under the mouse looks pressed:
///   that changes nothing that the program reads.
/// - The one button that gives it up works, by the mouse and by its keys. While a dialog reads from
///   the web (DialogRead), what closes it works instead, and all else that is meant for it is
///   dropped.
/// - Other clicks and keys, also those that move in a list and so change its selection, and close
///   requests are kept for the next yield or event loop.
/// - Other timers and sockets don't fire; what was due fires afterwards.
/// - A Yield() in a resize or paint handler does nothing.
/// - Calls queued through the event loop (signals of other threads) do arrive, as the event loop
///   can't hold them back: whoever receives them and may only act at a yield asks Waiting().
class WindowYield {
public:
    WindowYield();
    WindowYield(const WindowYield&) = delete;
    WindowYield& operator=(const WindowYield&) = delete;
    ~WindowYield();

    /// The button that stays alive during waits, and what tells whether waits are to be given up
    /// because it has been pressed.
    void SetAbandon(QAbstractButton& button, std::function<bool()> isPressed);

    /// Whether a wait is being served at this moment.
    [[nodiscard]] bool Waiting() const { return waiting_; }

private:
    void YieldPass();
    [[nodiscard]] bool WaitingPass();
    void ServeDisplay();

    std::function<void()> previousYield_;
    std::function<bool()> previousWaiting_;
    std::function<bool()> isAbandoned_;
    HeldInput input_;
    bool waiting_ = false;
};

} // namespace netrove
