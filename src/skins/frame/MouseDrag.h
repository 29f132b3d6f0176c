#pragma once

#include <QPoint>
#include <QRect>
#include <QWidget>

#include <optional>

namespace netrove {

/// Moves or resizes a window with the mouse. The desktop does it where it can, from the first
/// movement on; else the window follows by itself.
class MouseDrag {
public:
    explicit MouseDrag(QWidget& window) : window_(window) {}

    /// The button went down. Without edges the window will be moved, else resized by them.
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
