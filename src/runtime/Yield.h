#pragma once

#include <functional>

namespace netrove {

/// One pass of the event loop, in which pending input, paint and timer events are served before
/// the call returns. Long jobs call it at many points; it costs the reading of a clock unless
/// some milliseconds have passed since the last pass, so that events can be due. A yield inside a
/// pass may make a pass of its own.
///
/// Passes belong to the thread that sets them: in any other, yields do nothing.
void Yield();

/// What a pass does: the window runs its event loop, the console program looks at its signals.
/// An empty function makes yields do nothing. Gives back the one that was set before. The next
/// yield makes a pass.
std::function<void()> SetYieldPass(std::function<void()> pass);

/// With true, every Yield() makes a pass, however little time has gone by: tests use it to let
/// handlers in at every point where the rules allow one.
void SetYieldAlways(bool always);

/// Serves the display during a blocking wait of the platform: painting goes on, no handler of
/// the program runs. Waits call it every few tens of milliseconds. False where the wait is to be
/// given up: the call that waits then fails at once, as one whose path can't be reached.
[[nodiscard]] bool WhileWaiting();

/// What WhileWaiting() does, in the thread that sets it; an empty function means to go on. It
/// raises no exception. Gives back the one that was set before.
std::function<bool()> SetWaitingPass(std::function<bool()> pass);

} // namespace netrove
