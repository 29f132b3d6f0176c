#pragma once

#include <QString>

namespace netrove {

/// What netrove-find prints for --help: lines of at most 80 columns.
[[nodiscard]] QString HelpText();

} // namespace netrove
