#pragma once

#include "controls/ListView.h"
#include "platform/Dialogs.h"

namespace netrove {

/// Sorts a list by the text of the column `sortColumn`, in the direction opposite to that of the
/// last time, the first time descending, and marks the header of `markColumn` with it: " v" for
/// descending, " ^" for ascending. No other header keeps a mark. A list without rows stays as it
/// is. Yields before it begins and at each header; where it is called again at one of these, the
/// call inside counts. Gives false after a failure, and shows it in a box if `showError` says so.
bool SortListView(ListView& list, int markColumn, int sortColumn, bool showError, Dialogs& dialogs);

} // namespace netrove
