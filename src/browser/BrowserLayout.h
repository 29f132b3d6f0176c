#pragma once

#include "browser/BrowserControls.h"

namespace netrove {

/// Places the controls of the browser according to the size of the dialog: the tree with the
/// buttons below it; during the first load, in place of the tree, the picture with the texts below
/// it.
class BrowserLayout {
public:
    /// Smallest outer size of the dialog, in twips.
    static constexpr int MinWidth = 4590;
    static constexpr int MinHeight = 5250;

    BrowserLayout(QWidget& dialog, BrowserControls& controls)
        : dialog_(dialog), controls_(controls) {}

    /// To be called whenever the dialog's size has changed.
    void Form_Resize();

private:
    void EnforceMinimumSize();
    void PlaceFirstLoad();
    void PlaceTree();

    QWidget& dialog_;
    BrowserControls& controls_;
};

} // namespace netrove
