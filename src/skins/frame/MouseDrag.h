#pragma once

#include <QPoint>
#include <QRect>
#include <QWidget>

#include <optional>

namespace netrove {

/// Moves or resizes a window with the mouse. From the first movement on the desktop does it where
/// it can; elsewhere this class moves the window itself.
class MouseDrag {
public:
    explicit MouseDrag(QWidget& window) : window_(window) {}

    /// The button went down. Without edges the window will be moved, otherwise resized by these
    /// edges.
    void Press(const QPoint& onScreen, Qt::Edges edges);
    void Move(const QPoint& onScreen);
    void Release() { press_.reset(); }

private:
    struct Start {
        QPoint onScreen;
        Qt::Edges edges;
        QRect window;
        bool moving = false;
    };

    [[nodiscard]] bool DesktopTakesOver() const;
    void Follow(const QPoint& moved);

    QWidget& window_;
    std::optional<Start> press_;
};

} // namespace netrove
