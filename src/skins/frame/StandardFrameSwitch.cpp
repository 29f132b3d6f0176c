#include "skins/frame/StandardFrameSwitch.h"

#include "skins/frame/WindowAbilities.h"

#include <QCoreApplication>
#include <QMoveEvent>
#include <QWindow>

namespace netrove {
namespace {

// The window system doesn't tell when it has changed a frame, so it is polled for a while.
constexpr int TickInterval = 10; ///< milliseconds
constexpr int MostTicks = 50;

} // namespace

StandardFrameSwitch::StandardFrameSwitch(QWidget& window, Measure measure)
    : QObject(&window), window_(window), measure_(std::move(measure)) {
    settling_.setInterval(TickInterval);
    connect(&settling_, &QTimer::timeout, this, &StandardFrameSwitch::Settle);
    window.installEventFilter(this);
}

void StandardFrameSwitch::TakeAway() {
    Switch(true);
}

void StandardFrameSwitch::GiveBack() {
    Switch(false);
}

void StandardFrameSwitch::Switch(bool frameless) {
    const QMargins before = Margins();
    // A target that hasn't been reached yet still holds.
    if (!target_)
        target_ = Outer();
    if (!frameless_ && window_.isVisible())
        standardFrame_ = before;
    frameless_ = frameless;
    // QWidget::setWindowFlags() would re-create the window.
    window_.overrideWindowFlags(window_.windowFlags().setFlag(Qt::FramelessWindowHint, frameless));
    if (QWindow* handle = window_.windowHandle())
        handle->setFlag(Qt::FramelessWindowHint, frameless);
    FitTarget(frameless ? QMargins() : standardFrame_);
    if (!window_.isVisible())
        return;
    BeginSettling();
    if (before.isNull() != Margins().isNull()) // the window system did it at once
        Settle();
}

QMargins StandardFrameSwitch::Margins() const {
    const QWindow* handle = window_.windowHandle();
    return handle ? measure_(*handle) : QMargins();
}

std::optional<QRect> StandardFrameSwitch::Outer() const {
    if (!window_.isVisible())
        return lastOuter_;
    if (window_.isMaximized() || window_.isFullScreen() || window_.isMinimized())
        return std::nullopt;
    return window_.windowHandle()->geometry().marginsAdded(Margins());
}

void StandardFrameSwitch::FitTarget(const QMargins& frame) {
    if (!target_ || window_.isMaximized() || window_.isFullScreen() || window_.isMinimized())
        return;
    const QRect inner = target_->marginsRemoved(frame);
    if (CanPlaceWindows())
        window_.setGeometry(inner);
    else
        window_.resize(inner.size());
}

void StandardFrameSwitch::BeginSettling() {
    ticks_ = 0;
    told_ = false;
    settling_.start();
}

/// The requests to the window system take effect some time later: either the frame or the geometry
/// may change first.
void StandardFrameSwitch::Settle() {
    const QMargins frame = Margins();
    const bool changed = frameless_ == frame.isNull();
    const bool last = ++ticks_ >= MostTicks;
    if (changed || last) {
        if (!std::exchange(told_, true))
            TellFrameChanged();
        FitTarget(frame);
        if (last || IsAtTarget(frame))
            target_.reset();
    }
    if (last)
        EndSettling();
}

bool StandardFrameSwitch::IsAtTarget(const QMargins& frame) const {
    if (!target_)
        return true;
    const QRect outer = window_.windowHandle()->geometry().marginsAdded(frame);
    return CanPlaceWindows() ? outer == *target_ : outer.size() == target_->size();
}

/// The widget updates what it knows of the frame only when it is moved, and the window's own size
/// rules may count the frame.
void StandardFrameSwitch::TellFrameChanged() {
    QWindow& handle = *window_.windowHandle();
    QMoveEvent move(handle.position(), handle.position());
    QCoreApplication::sendEvent(&handle, &move);
    QResizeEvent resize(window_.size(), window_.size());
    QCoreApplication::sendEvent(&window_, &resize);
}

void StandardFrameSwitch::EndSettling() {
    settling_.stop();
    if (!frameless_)
        return;
    const bool insists = frameless_ && !Margins().isNull();
    if (std::exchange(insists_, insists) != insists)
        Q_EMIT InsistenceChanged();
}

bool StandardFrameSwitch::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &window_ && event->type() == QEvent::Hide) {
        settling_.stop(); // settling goes on, with the same target, when the window is shown again
        if (window_.windowHandle())
            lastOuter_ =
                target_ ? *target_ : window_.windowHandle()->geometry().marginsAdded(Margins());
    }
    if (watched == &window_ && event->type() == QEvent::Show)
        BeginSettling();
    return QObject::eventFilter(watched, event);
}

} // namespace netrove
