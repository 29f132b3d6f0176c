#pragma once

#include "desktop/HeldInput.h"

#include <functional>

namespace netrove {

/// What Yield() and WhileWaiting() do in a program with windows while this object lives; its
/// destructor restores the passes from before. For the thread of the windows.
///
/// A yield makes one pass of the event loop: input, painting, timers. Failures of handlers don't
/// reach the job that yields: DesktopApplication catches them.
///
/// A wait serves the display, and the input that abandons it:
/// - Windows are painted, resized and uncovered, and answer the window manager. Views show what has
///   been added to them: the timers that are only for the display (DisplayTimer) fire.
/// - The wheel and the scroll bars scroll views, and a push button under the mouse looks pressed:
///   neither changes anything that the program reads.
/// - The one button that abandons the wait works, by the mouse and by its keys. While a dialog
///   reads from the web (DialogRead), what closes the dialog works instead, and all its other input
///   is dropped.
/// - Other clicks and keys, including those that move in a list and so change its selection, and
///   close requests are kept for the next yield or event loop.
/// - Other timers and sockets don't fire; those that were due fire afterwards.
/// - A Yield() in a resize or paint handler does nothing.
/// - Calls queued through the event loop (signals of other threads) do arrive, as the event loop
///   can't hold them back: receivers that may act only at a yield must check Waiting().
class WindowYield {
public:
    WindowYield();
    WindowYield(const WindowYield&) = delete;
    WindowYield& operator=(const WindowYield&) = delete;
    ~WindowYield();

    /// Sets the button that works during waits; `isPressed` tells that it has been pressed, and
    /// waits are to end.
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
