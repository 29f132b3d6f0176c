#pragma once

#include <QEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>

namespace netrove {

/// Scrolls views with the mouse during a wait. That changes no more than what part of a view is
/// seen; a press that came by the usual way would give the view the focus.
class ScrollInput {
public:
    /// The mouse went down on the widget: if that is a view's scroll bar, it has the mouse until
    /// the button comes up, also after the wait. False if it isn't.
    bool Begin(QWidget* widget, const QMouseEvent& press);

    /// Whether the event is one that the scroll bar has got.
    bool Continue(const QObject& receiver, const QEvent& event);

    [[nodiscard]] static bool IsBar(const QWidget* widget);

    /// Whether the wheel at this place of the window, a QWindow, is for a view.
    [[nodiscard]] static bool IsOverView(const QObject& window, const QPointF& place);

private:
    void Send(const QMouseEvent& event);

    QPointer<QScrollBar> bar_;
};

} // namespace netrove
