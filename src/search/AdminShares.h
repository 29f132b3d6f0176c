#pragma once

#include <QStringList>

namespace netrove {

/// The names of the shares that every computer of a Windows network may have without listing
/// them: "Admin$", then "C$" to "Z$".
[[nodiscard]] QStringList AdminShareNames();

} // namespace netrove
