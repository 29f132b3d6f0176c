#pragma once

#include <QString>

namespace netrove {

/// The version of the program, as in "0.99.5": the one of the build.
[[nodiscard]] QString ProgramVersion();

} // namespace netrove
