#pragma once

#include <functional>

namespace netrove {

/// What Yield() and WhileWaiting() do in a program with windows, as long as this object lives; the
/// passes from before come back with its end. For the thread of the windows.
///
/// A yield makes one pass of the event loop: input, painting, timers. Failures of handlers don't
/// come through to the job that yields: DesktopApplication ends them.
///
/// A wait serves the display alone:
/// - Windows are painted, resized and uncovered, and answer the window manager.
/// - Keys, the mouse and close requests stay queued for the next yield or event loop.
/// - Timers and sockets don't fire; what was due fires afterwards.
/// - A Yield() in a resize or paint handler does nothing.
/// - Calls queued through the event loop (signals of other threads) do arrive, as the event loop
///   can't hold them back: whoever receives them and may only act at a yield asks Waiting().
class WindowYield {
public:
    WindowYield();
    WindowYield(const WindowYield&) = delete;
    WindowYield& operator=(const WindowYield&) = delete;
    ~WindowYield();

    /// Whether a wait is being served at this moment.
    [[nodiscard]] bool Waiting() const { return waiting_; }

private:
    void YieldPass() const;
    void WaitingPass();

    std::function<void()> previousYield_;
    std::function<bool()> previousWaiting_;
    bool waiting_ = false;
};

} // namespace netrove
