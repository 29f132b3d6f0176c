#include "desktop/MousePress.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>

namespace netrove {

void MousePress::Begin(const QObject& window, const QEvent& event) {
    if (!IsPress(event))
        return;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    widget_ = mouse.button() == Qt::LeftButton ? WidgetAt(window, mouse.position()) : nullptr;
}

void MousePress::End(const QEvent& event, bool isServed) {
    if (IsPress(event))
        isServed_ = isServed;
    else if (event.type() == QEvent::MouseButtonRelease)
        widget_ = nullptr;
}

QPointer<QAbstractButton> MousePress::Show(const QEvent& event) const {
    auto* button = qobject_cast<QAbstractButton*>(widget_);
    const bool isPress = IsPress(event);
    if (!button || !button->isEnabled() ||
        (!isPress && (event.type() != QEvent::MouseButtonRelease || !button->isDown())))
        return nullptr;
    button->setDown(isPress);
    return isPress || isServed_ ? button : nullptr;
}

bool MousePress::IsPress(const QEvent& event) {
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
}

QWidget* MousePress::WidgetAt(const QObject& window, const QPointF& place) {
    if (QApplication::activePopupWidget())
        return nullptr;
    for (QWidget* top : QApplication::topLevelWidgets()) {
        if (top->windowHandle() == &window)
            return top->childAt(place.toPoint());
    }
    return nullptr;
}

} // namespace netrove
