#pragma once

#include "skins/frame/FrameLook.h"
#include "skins/frame/MouseDrag.h"

#include <QWidget>

namespace netrove {

/// One side of a painted frame: paints its border, and lets the mouse resize the window by it and
/// its corners. It is thicker than a thin border, and then lies partly over the client area.
class FrameEdge : public QWidget {
public:
    FrameEdge(QWidget& window, Qt::Edge edge);

    void SetLook(std::shared_ptr<const FrameLook> look);

    /// Moves to its place in the window.
    void Place();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// The edges by which a drag from this place resizes the window.
    [[nodiscard]] Qt::Edges EdgesAt(const QPoint& position) const;

    QWidget& window_;
    Qt::Edge edge_;
    MouseDrag drag_;
    std::shared_ptr<const FrameLook> look_;
};

} // namespace netrove
