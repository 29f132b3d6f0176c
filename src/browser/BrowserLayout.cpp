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
    const QRect inner = dialog_.contentsRect();
    const auto centred = [inner](QWidget& control, int top) {
        control.move(inner.x() + (inner.width() - control.width()) / 2, top);
        return top + control.height() + ToPixels(Between);
    };
    QLabel& picture = *controls_.ImgNet1;
    picture.resize(picture.sizeHint());
    controls_.LblMain->resize(controls_.LblMain->sizeHint());
    int top = inner.y() + (inner.height() - picture.height()) / 2 - ToPixels(AboveCentre);
    top = centred(picture, top);
    top = centred(*controls_.LblMain, top);
    top = centred(*controls_.picProg, top);
    // As wide as the dialog, so that long names fit.
    controls_.lblAddNode->setGeometry(inner.x(), top, inner.width(),
                                      controls_.lblAddNode->sizeHint().height());
}

void BrowserLayout::PlaceTree() {
    constexpr int AroundButtons = 300; ///< twips above and below them
    constexpr int RightOfButtons = 225;
    constexpr int BetweenButtons = 105;
    QPushButton& ok = *controls_.cmdOk;
    QPushButton& cancel = *controls_.cmdCancel;
    ok.resize(ok.sizeHint());
    cancel.resize(cancel.sizeHint());

    const QRect inner = dialog_.contentsRect();
    const int treeHeight = inner.height() - ToPixels(AroundButtons) - ok.height();
    controls_.tvwNetwork->setGeometry(inner.x(), inner.y(), inner.width(), treeHeight);
    const int belowTree = inner.y() + treeHeight;
    const int row = belowTree + ToPixels(AroundButtons / 2);
    ok.move(inner.right() + 1 - ok.width() - cancel.width() - ToPixels(RightOfButtons), row);
    cancel.move(ok.x() + ok.width() + ToPixels(BetweenButtons), row);
    controls_.lblWait->resize(controls_.lblWait->sizeHint());
    controls_.lblWait->move(inner.x() + ToPixels(AroundButtons / 2),
                            row + (ok.height() - controls_.lblWait->height()) / 2);
    controls_.Ln[0]->setGeometry(inner.x(), inner.y(), inner.width(), 2);
    controls_.Ln[1]->setGeometry(inner.x(), belowTree + ToPixels(AroundButtons / 4) - 1,
                                 inner.width(), 2);
}

} // namespace netrove
