#include "searchrun/ComputerPanel.h"

namespace netrove {
namespace {

constexpr int Panel = 3;

} // namespace

void ComputerPanel::Show(int done, int known) {
    if (known < 2)
        return;
    // The panel has room for three digits.
    stbStatus_.SetText(Panel, QString::number(known - done));
    stbStatus_.SetToolTipText(Panel,
                              tr("%n computers done, %1 left", nullptr, done).arg(known - done));
}

void ComputerPanel::Clear() {
    stbStatus_.SetText(Panel, QString());
    stbStatus_.SetToolTipText(Panel, QString());
}

} // namespace netrove
