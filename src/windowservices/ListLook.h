#pragma once

#include "controls/ListView.h"
#include "settings/Settings.h"

namespace netrove {

/// Gives the two lists of the main window their background colours, or white, and their grid lines.
void ApplyListLook(const Settings& settings, ListView& results, ListView& downloads);

} // namespace netrove
