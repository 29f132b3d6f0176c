#pragma once

#include <QAbstractButton>
#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace netrove {

/// What the mouse's left button is down on, from press to release, no matter whether the press has
/// been served or kept.
class MousePress {
public:
    /// To be called with an event for the window, a QWindow, before it is served or kept.
    void Begin(const QObject& window, const QEvent& event);
    /// To be called afterwards, with what became of the event.
    void End(const QEvent& event, bool isServed);

    /// Null if the button isn't down, or not on a widget.
    [[nodiscard]] QWidget* Widget() const { return widget_; }
    [[nodiscard]] bool IsServed() const { return isServed_; }

    /// Makes a push button look as the kept press or release would make it look. Returns the button
    /// if that look differs from its real state.
    QPointer<QAbstractButton> Show(const QEvent& event) const;

    /// Whether a mouse button goes down, including the second press of a double click.
    [[nodiscard]] static bool IsPress(const QEvent& event);

    /// The widget at this place of the window; null if there's none, or a menu takes the mouse.
    [[nodiscard]] static QWidget* WidgetAt(const QObject& window, const QPointF& place);

private:
    QPointer<QWidget> widget_;
    bool isServed_ = false;
};

} // namespace netrove
