#pragma once

#include "browser/BrowserControls.h"

namespace netrove {

/// Where the controls of the browser stand, by the size of the dialog: the tree and the buttons
/// below it; in the tree's place, during the first load, the picture and the texts below that.
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
