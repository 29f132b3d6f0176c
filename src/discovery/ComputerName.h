#pragma once

#include <QString>

namespace netrove {

/// Whether a text from the network can be the name of a computer or a workgroup, in a network path
/// and on a screen: not empty, at most 255 characters, no separator, no "|", no control character,
/// neither "." nor "..", no blank at either end.
[[nodiscard]] bool IsComputerName(const QString& text);

} // namespace netrove
