#pragma once

#include <QString>

namespace netrove {

/// The folder that the program keeps its files in: the folder of the executable where the user may
/// write there, else "netrove" in the user's data folder, which is made if need be. No closing
/// separator.
[[nodiscard]] QString ApplicationFolder();

} // namespace netrove
