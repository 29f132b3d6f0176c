#pragma once

#include <QString>

namespace netrove {

/// Whether a numeric address (or "localhost") leads to the computer that the program runs on: it is
/// a loopback address, or that of one of its interfaces. Asks nobody.
[[nodiscard]] bool IsOwnAddress(const QString& address);

} // namespace netrove
