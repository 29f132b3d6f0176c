#pragma once

#include <functional>

namespace netrove {

/// Makes one pass of the event loop, in which pending input, paint and timer events are served
/// before the call returns. Long jobs call it at many points: unless some milliseconds have passed
/// since the last pass, so that events can be due, it only reads a clock. A yield inside a pass may
/// make a pass of its own.
///
/// Passes belong to the thread that sets them: in any other, yields do nothing.
void Yield();

/// Sets what a pass does: the window runs its event loop, the console program looks at its signals.
/// An empty function makes yields do nothing. Returns the function that was set before. The next
/// yield makes a pass.
std::function<void()> SetYieldPass(std::function<void()> pass);

/// With true, every Yield() makes a pass, however little time has passed: tests use it to let
/// handlers run at every point where the rules allow it.
void SetYieldAlways(bool always);

/// Serves the display during a blocking wait: painting goes on, but no handler of the program runs.
/// Waits call it every few tens of milliseconds. False where the wait is to be given up: the call
/// that waits then fails at once, as if its path couldn't be reached.
[[nodiscard]] bool WhileWaiting();

/// Sets what WhileWaiting() does in this thread; with an empty function waits go on. The function
/// must raise no exception. Returns the one that was set before.
std::function<bool()> SetWaitingPass(std::function<bool()> pass);

} // namespace netrove
