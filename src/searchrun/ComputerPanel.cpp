#include "searchrun/ComputerPanel.h"

#include <algorithm>

namespace netrove {

void ComputerPanel::Show(int done, int known) {
    if (known < 2)
        return;
    // Only the number: the panel has room for three digits.
    stbStatus_.SetText(Number, QString::number(known - done));
    stbStatus_.SetToolTipText(Number,
                              tr("%n computers done, %1 left", nullptr, done).arg(known - done));
}

void ComputerPanel::Tell(const QString& notSearched) {
    Clear();
    if (notSearched.isEmpty())
        return;
    stbStatus_.SetText(Number, notSearched);
    stbStatus_.SetToolTipText(
        Number, tr("Click here, or on \"Computers That Didn't Answer...\" in the menu, to see "
                   "what and why"));
    stbStatus_.SetClickable(Number, true);
    SetWidth(std::max(width_, stbStatus_.WidthFor(notSearched)));
}

void ComputerPanel::Clear() {
    stbStatus_.SetText(Number, QString());
    stbStatus_.SetToolTipText(Number, QString());
    stbStatus_.SetClickable(Number, false);
    SetWidth(width_);
}

/// Keeps the sum of the panels' widths.
void ComputerPanel::SetWidth(int twips) {
    const int more = twips - stbStatus_.MinWidth(Number);
    if (more == 0)
        return;
    stbStatus_.SetMinWidth(Number - 1, stbStatus_.MinWidth(Number - 1) - more);
    stbStatus_.SetMinWidth(Number, twips);
}

} // namespace netrove
