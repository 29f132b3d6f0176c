#include "searchrun/JobControls.h"

namespace netrove {

void JobControls::EnableButtons(bool enabled, JobKind kind) const {
    for (QAction* item : fileItems)
        item->setEnabled(enabled);
    for (QAction* item : helpItems)
        item->setEnabled(enabled);
    filesPicture->setVisible(enabled);
    filesPicture->setEnabled(enabled);
    busyPicture->setVisible(!enabled);
    busyPicture->setEnabled(!enabled);
    for (QWidget* input : inputs)
        input->setEnabled(enabled);
    if (kind == JobKind::Browsing)
        cmdAbandon->setEnabled(enabled);
}

} // namespace netrove
