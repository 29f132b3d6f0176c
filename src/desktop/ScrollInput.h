#pragma once

#include <QEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>

namespace netrove {

/// Scrolls views with the mouse during a wait. That changes only which part of a view is visible; a
/// press that came the usual way would also give the view the focus.
class ScrollInput {
public:
    /// The mouse went down on the widget: if that is a view's scroll bar, it gets the mouse until
    /// the button comes up, even after the wait. False if it isn't one.
    bool Begin(QWidget* widget, const QMouseEvent& press);

    /// Whether the event was for the scroll bar, which has got it then.
    bool Continue(const QObject& receiver, const QEvent& event);

    [[nodiscard]] static bool IsBar(const QWidget* widget);

    /// Whether the wheel at this place of the window, a QWindow, is for a view.
    [[nodiscard]] static bool IsOverView(const QObject& window, const QPointF& place);

private:
    void Send(const QMouseEvent& event);

    QPointer<QScrollBar> bar_;
};

} // namespace netrove
