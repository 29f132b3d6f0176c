#pragma once

#include "controls/ListView.h"
#include "platform/Dialogs.h"

namespace netrove {

/// Sorts a list by the text of the column `sortColumn`, in the opposite direction to the last time
/// (descending the first time), and marks the header of `markColumn` with the direction: " v" for
/// descending, " ^" for ascending. No other header keeps a mark. A list without rows stays as it
/// is. Yields at the start and at each header; if it is called again during a yield, the inner call
/// counts. Returns false after a failure, and shows the failure in a message box if `showError` is
/// set.
bool SortListView(ListView& list, int markColumn, int sortColumn, bool showError, Dialogs& dialogs);

} // namespace netrove
