#pragma once

#include <QAbstractButton>
#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace netrove {

/// What the mouse's left button is down on, from its press to its release, whether the press has
/// been served or is kept.
class MousePress {
public:
    /// An event for the window, a QWindow, that is to be served or kept now.
    void Begin(const QObject& window, const QEvent& event);
    /// What has become of it.
    void End(const QEvent& event, bool isServed);

    /// Null where the button isn't down, or on nothing.
    [[nodiscard]] QWidget* Widget() const { return widget_; }
    [[nodiscard]] bool IsServed() const { return isServed_; }

    /// Lets a push button look as the kept press or release would have it. Gives the button where
    /// it doesn't take itself for what it looks like.
    QPointer<QAbstractButton> Show(const QEvent& event) const;

    /// Whether a mouse button goes down, also for the second time of a double click.
    [[nodiscard]] static bool IsPress(const QEvent& event);

    /// The widget at this place of the window; null if there's none, or a menu takes the mouse.
    [[nodiscard]] static QWidget* WidgetAt(const QObject& window, const QPointF& place);

private:
    QPointer<QWidget> widget_;
    bool isServed_ = false;
};

} // namespace netrove
