#pragma once

#include <QString>

namespace netrove {

/// Whether a text that a computer has announced may be used as its name or its workgroup's, in a
/// network path and on a screen: an IsNodeName() of at most NameLimits::RemoteName characters, with
/// no control character and no blank at either end.
[[nodiscard]] bool IsComputerName(const QString& text);

} // namespace netrove
