#include "browser/BrowserLayout.h"

#include "controls/Twips.h"

namespace netrove {

void BrowserLayout::Form_Resize() {
    if (dialog_.isMinimized())
        return;
    EnforceMinimumSize();
    PlaceFirstLoad();
    PlaceTree();
}

/// The window system keeps the dialog from going below its minimum size, which it counts without
/// the frame.
void BrowserLayout::EnforceMinimumSize() {
    const QSize frame = dialog_.frameGeometry().size() - dialog_.size();
    dialog_.setMinimumSize(ToPixels(MinWidth) - frame.width(),
                           ToPixels(MinHeight) - frame.height());
}

void BrowserLayout::PlaceFirstLoad() {
    constexpr int AboveCentre = 750;
    constexpr int Between = 50;
    const int width = dialog_.width();
    const auto centred = [width](QWidget& control, int top) {
        control.move((width - control.width()) / 2, top);
        return top + control.height() + ToPixels(Between);
    };
    QLabel& picture = *controls_.ImgNet1;
    picture.resize(picture.sizeHint());
    controls_.LblMain->resize(controls_.LblMain->sizeHint());
    int top = (dialog_.height() - picture.height()) / 2 - ToPixels(AboveCentre);
    top = centred(picture, top);
    top = centred(*controls_.LblMain, top);
    top = centred(*controls_.picProg, top);
    // As wide as the dialog, for long names.
    controls_.lblAddNode->setGeometry(0, top, width, controls_.lblAddNode->sizeHint().height());
}

void BrowserLayout::PlaceTree() {
    constexpr int AroundButtons = 300; ///< twips above and below them
    constexpr int RightOfButtons = 225;
    constexpr int BetweenButtons = 105;
    QPushButton& ok = *controls_.cmdOk;
    QPushButton& cancel = *controls_.cmdCancel;
    ok.resize(ok.sizeHint());
    cancel.resize(cancel.sizeHint());

    const int width = dialog_.width();
    const int treeHeight = dialog_.height() - ToPixels(AroundButtons) - ok.height();
    controls_.tvwNetwork->setGeometry(0, 0, width, treeHeight);
    const int row = treeHeight + ToPixels(AroundButtons / 2);
    ok.move(width - ok.width() - cancel.width() - ToPixels(RightOfButtons), row);
    cancel.move(ok.x() + ok.width() + ToPixels(BetweenButtons), row);
    controls_.lblWait->resize(controls_.lblWait->sizeHint());
    controls_.lblWait->move(ToPixels(AroundButtons / 2),
                            row + (ok.height() - controls_.lblWait->height()) / 2);
    controls_.Ln[0]->setGeometry(0, 0, width, 2);
    controls_.Ln[1]->setGeometry(0, treeHeight + ToPixels(AroundButtons / 4) - 1, width, 2);
}

} // namespace netrove
