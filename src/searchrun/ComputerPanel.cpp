#include "searchrun/ComputerPanel.h"

namespace netrove {
namespace {

constexpr int Panel = 3;
/// More computers don't fit into the panel by their numbers.
constexpr int MostCounted = 99;

} // namespace

void ComputerPanel::Show(int done, int known) {
    if (known < 2)
        return;
    stbStatus_.SetText(Panel, known > MostCounted ? QStringLiteral("%1 %").arg(100 * done / known)
                                                  : QStringLiteral("%1/%2").arg(done).arg(known));
    stbStatus_.SetToolTipText(
        Panel, QStringLiteral("%1 computers done, %2 left").arg(done).arg(known - done));
}

void ComputerPanel::Clear() {
    stbStatus_.SetText(Panel, QString());
    stbStatus_.SetToolTipText(Panel, QString());
}

} // namespace netrove
