#include "controls/DelayedFlush.h"

#include <chrono>
#include <utility>

namespace netrove {
namespace {

/// How long changes gather: short enough to look immediate.
constexpr std::chrono::milliseconds Delay{40};

} // namespace

DelayedFlush::DelayedFlush(QAbstractScrollArea& view, std::function<void()> flush)
    : flush_(std::move(flush)) {
    view.installEventFilter(this);
    view.viewport()->installEventFilter(this);
    timer_.setSingleShot(true);
    timer_.setInterval(Delay);
    timer_.callOnTimeout([this] { flush_(); });
}

void DelayedFlush::Schedule() {
    if (!timer_.isActive())
        timer_.start();
}

/// Flushes before the user's input is served, so that it meets the view in its present state.
bool DelayedFlush::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::ContextMenu:
    case QEvent::FocusIn:
        flush_();
        break;
    default:
        break;
    }
    return false;
}

} // namespace netrove
