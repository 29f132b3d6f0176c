#pragma once

#include <chrono>

namespace netrove {

/// Keeps the program off the session bus for its whole life if the bus takes connections but then
/// says nothing for `limit`: the toolkit would wait for it without end, at its start and at each
/// question. To be called before there is an application object.
void LeaveSilentSessionBus(std::chrono::milliseconds limit = std::chrono::milliseconds(100));

} // namespace netrove
