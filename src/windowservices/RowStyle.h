#pragma once

#include "controls/ListView.h"

namespace netrove {

/// Gives a row and all of its columns a text colour (red in the low byte; a value with the top
/// bit set names a colour of the desktop) and makes them bold or not, then paints the list. A
/// row number above the number of rows does nothing.
void SetRowStyle(ListView& list, int row, quint32 color, bool bold);

} // namespace netrove
