#include "mainwindow/WindowLayout.h"

#include "controls/Twips.h"
#include "runtime/Yield.h"
#include "windowservices/WindowGeometry.h"

#include <QLayout>

namespace netrove {
namespace {

void SetWidth(QWidget& widget, int twips) {
    widget.resize(ToPixels(twips), widget.height());
}

void SetHeight(QWidget& widget, int twips) {
    widget.resize(widget.width(), ToPixels(twips));
}

/// Moves the right end of a horizontal line.
void SetRightEnd(QWidget& line, int twips) {
    line.resize(ToPixels(twips) - line.x(), line.height());
}

} // namespace

void WindowLayout::Form_Resize() {
    const int pass = ++passes_;
    EnforceMinimumSize();
    // While the window is being shown, a new minimum size isn't laid out by itself.
    window_.layout()->activate();
    const QSize inner = window_.centralWidget()->size();
    // The window may be resized again during a yield; then that newer pass has done the layout.
    Yield();
    if (pass != passes_)
        return;
    ResizeWidths(ToTwips(inner.width()));
    Yield();
    if (pass != passes_)
        return;
    ResizeHeights(ToTwips(inner.height()));
    EnforceMinimumSize();
    window_.update();
}

void WindowLayout::TakeDesignSize() {
    window_.layout()->activate();
    window_.setMinimumSize(0, 0); // it counts the desktop's frame, which isn't there yet
    const QSize around = window_.size() - window_.centralWidget()->size();
    window_.resize(QSize(ToPixels(DesignWidth), ToPixels(DesignHeight)) + around);
}

/// A window that is shown again has no frame for a moment: it's expected to get its last one again.
QMargins WindowLayout::ExpectedFrame() {
    const QMargins frame = DesktopFrame(window_);
    if (!frame.isNull())
        frame_ = frame;
    return frame.isNull() && window_.windowFlags().testFlag(Qt::FramelessWindowHint) ? frame
                                                                                     : frame_;
}

/// The window system keeps the window from going below its minimum size, which it counts without
/// the frame.
void WindowLayout::EnforceMinimumSize() {
    if (window_.isMinimized())
        return;
    const QMargins frame = ExpectedFrame();
    window_.setMinimumSize(ToPixels(MinFormWidth) - frame.left() - frame.right(),
                           ToPixels(MinFormHeight) - frame.top() - frame.bottom());
}

void WindowLayout::ResizeWidths(int innerWidth) {
    const int tabsWidth = innerWidth - 150;
    SetWidth(*controls_.SSTab1, tabsWidth);
    SetWidth(*controls_.picListHolder, tabsWidth);
    for (QWidget* control : {static_cast<QWidget*>(controls_.lvwResults),
                             static_cast<QWidget*>(controls_.lvwDownloads),
                             static_cast<QWidget*>(controls_.RetFileLbl),
                             static_cast<QWidget*>(controls_.DownloadLbl)})
        SetWidth(*control, tabsWidth - 120);
    SetRightEnd(*controls_.Line1, innerWidth);
    SetRightEnd(*controls_.Lne[3], innerWidth);
}

void WindowLayout::ResizeHeights(int innerHeight) {
    const int tabsHeight = innerHeight - 1675;
    SetHeight(*controls_.SSTab1, tabsHeight);
    SetHeight(*controls_.picListHolder, tabsHeight);
    controls_.picListHolder->update();
    SetHeight(*controls_.lvwResults, tabsHeight - 640);
    SetHeight(*controls_.lvwDownloads, tabsHeight - 640);
    const int captionTop = controls_.lvwResults->geometry().bottom() + 1 + ToPixels(15);
    controls_.RetFileLbl->move(controls_.RetFileLbl->x(), captionTop);
    controls_.DownloadLbl->move(controls_.DownloadLbl->x(), captionTop);

    StatusBar& status = *controls_.stbStatus;
    const int innerWidth = ToTwips(window_.centralWidget()->width());
    status.SetMinWidth(2, innerWidth - 45 - status.MinWidth(1) - status.MinWidth(3));
    status.setGeometry(0, ToPixels(innerHeight) - status.height(), window_.centralWidget()->width(),
                       status.height());
}

} // namespace netrove
