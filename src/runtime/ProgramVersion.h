#pragma once

#include <QDate>
#include <QString>

namespace netrove {

/// The version of the program, as in "0.99.5", set at build time.
[[nodiscard]] QString ProgramVersion();

/// The day of its release.
[[nodiscard]] QDate ReleaseDate();

} // namespace netrove
