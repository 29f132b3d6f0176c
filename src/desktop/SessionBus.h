#pragma once

#include <chrono>

namespace netrove {

/// Leaves the session bus alone for the life of the program if it takes connections and then says
/// nothing for so long: the toolkit would wait for it without end, at its start and at each
/// question. To be called before there is an application object.
void LeaveSilentSessionBus(std::chrono::milliseconds limit = std::chrono::milliseconds(100));

} // namespace netrove
