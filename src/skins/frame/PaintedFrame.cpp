#include "skins/frame/PaintedFrame.h"

#include "controls/Color.h"
#include "runtime/SourceText.h"
#include "skins/frame/FramePainter.h"
#include "skins/frame/WindowAbilities.h"

#include <QGuiApplication>
#include <QLayout>
#include <QWindow>

namespace netrove {
namespace {

/// Other platforms draw the whole window, whatever its mask.
bool CanCutCorners() {
    return QGuiApplication::platformName() == "xcb"_L1;
}

} // namespace

PaintedFrame::PaintedFrame(StandardFrameSwitch::Measure measure) : measure_(std::move(measure)) {}

QMargins PaintedFrame::DesktopFrame(const QWindow& window) {
    return window.frameMargins();
}

void PaintedFrame::Attach(QWidget& window, const SkinConfiguration& configuration) {
    if (window_ != &window)
        Bind(window);
    const bool first = !look_;
    look_ = std::make_shared<FrameLook>(configuration, look_.get());
    parts_->SetLook(look_);
    menuBar_.Put(window, *look_);
    LayOut(!standardFrame_->HasPlace() || HasFixedSize(window));
    if (first)
        standardFrame_->TakeAway();
}

void PaintedFrame::Bind(QWidget& window) {
    Detach();
    if (window_) {
        window_->removeEventFilter(this);
        delete parts_;
        delete standardFrame_;
    }
    window_ = &window;
    ownMargins_ = window.contentsMargins();
    parts_ = new FrameParts(window);
    standardFrame_ = new StandardFrameSwitch(window, measure_);
    connect(standardFrame_, &StandardFrameSwitch::InsistenceChanged, this,
            [this] { LayOut(HasFixedSize(*window_)); });
    window.installEventFilter(this);
}

void PaintedFrame::Detach() {
    if (!look_)
        return;
    look_.reset();
    menuBar_.TakeBack();
    if (!window_)
        return;
    LayOut(!standardFrame_->HasPlace() || HasFixedSize(*window_));
    standardFrame_->GiveBack();
}

quint32 PaintedFrame::ResolvedBackColor() const {
    return look_ ? FromColor(look_->colors.back) : desktop_.ResolvedBackColor();
}

quint32 PaintedFrame::ResolvedForeColor() const {
    return look_ ? FromColor(look_->colors.text) : desktop_.ResolvedForeColor();
}

bool PaintedFrame::IsPainted() const {
    return IsAttached() && !standardFrame_->DesktopInsists() && !window_->isFullScreen();
}

QMargins PaintedFrame::FrameMargins() const {
    if (!IsPainted())
        return {};
    const int border = window_->isMaximized() ? 0 : look_->metrics.border;
    return {border, look_->metrics.titleHeight, border, border};
}

void PaintedFrame::LayOut(bool keepClientSize) {
    const QMargins before = window_->contentsMargins();
    const QMargins margins = ownMargins_ + FrameMargins();
    const QMargins more = margins - before;
    // If the window is to grow, it does so first, so that its contents always have the room that
    // they need.
    if (keepClientSize)
        Grow(QSize(more.left() + more.right(), more.top() + more.bottom()));
    window_->setContentsMargins(margins);
    if (IsPainted())
        parts_->Show();
    else
        parts_->Hide();
    CutCorners();
}

void PaintedFrame::Grow(const QSize& by) {
    if (by.isNull() || FillsScreen(*window_))
        return;
    const QLayout* layout = window_->layout();
    const bool sizedByLayout = layout && layout->sizeConstraint() == QLayout::SetFixedSize;
    if (HasFixedSize(*window_) && !sizedByLayout)
        window_->setFixedSize(window_->size() + by);
    else
        window_->resize(window_->size() + by);
}

/// Cuts off what lies outside the rounded corners, to the pixel.
void PaintedFrame::CutCorners() {
    const bool cut = IsPainted() && !FillsScreen(*window_) && CanCutCorners() &&
                     (look_->metrics.upperRadius > 0 || look_->metrics.lowerRadius > 0);
    if (cut)
        window_->setMask(FramePainter::Inside(look_->metrics, window_->rect()));
    else
        window_->clearMask();
}

bool PaintedFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window_ && IsAttached()) {
        switch (event->type()) {
        case QEvent::Resize:
            parts_->Place();
            CutCorners();
            break;
        case QEvent::WindowStateChange:
            LayOut(false);
            parts_->Refresh();
            break;
        case QEvent::Show:
            LayOut(false); // brings the parts above what has been added to the window meanwhile
            parts_->Refresh();
            break;
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
        case QEvent::WindowTitleChange:
        case QEvent::WindowIconChange:
            parts_->Refresh();
            break;
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace netrove
