#include "desktop/ScrollInput.h"

#include "desktop/MousePress.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>

namespace netrove {
namespace {

QAbstractScrollArea* ViewOf(const QWidget* widget) {
    for (QWidget* above = widget ? widget->parentWidget() : nullptr; above;
         above = above->parentWidget()) {
        if (auto* view = qobject_cast<QAbstractScrollArea*>(above))
            return view;
    }
    return nullptr;
}

} // namespace

bool ScrollInput::Begin(QWidget* widget, const QMouseEvent& press) {
    if (!IsBar(widget))
        return false;
    bar_ = static_cast<QScrollBar*>(widget);
    Send(press);
    return true;
}

bool ScrollInput::Continue(const QObject& receiver, const QEvent& event) {
    const bool isRelease = event.type() == QEvent::MouseButtonRelease;
    if (!bar_ || !receiver.isWindowType() || (!isRelease && event.type() != QEvent::MouseMove))
        return false;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    Send(mouse);
    if (isRelease && mouse.button() == Qt::LeftButton)
        bar_ = nullptr;
    return true;
}

bool ScrollInput::IsBar(const QWidget* widget) {
    return qobject_cast<const QScrollBar*>(widget) && widget->isEnabled() && ViewOf(widget);
}

bool ScrollInput::IsOverView(const QObject& window, const QPointF& place) {
    const QWidget* widget = MousePress::WidgetAt(window, place);
    const QAbstractScrollArea* view = ViewOf(widget);
    return view && (widget == view->viewport() || IsBar(widget));
}

void ScrollInput::Send(const QMouseEvent& event) {
    QMouseEvent toBar(event.type(), bar_->mapFromGlobal(event.globalPosition()),
                      event.globalPosition(), event.button(), event.buttons(), event.modifiers());
    QCoreApplication::sendEvent(bar_, &toBar);
}

} // namespace netrove
