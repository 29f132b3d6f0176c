#pragma once

#include "skins/frame/FrameLook.h"
#include "skins/frame/MouseDrag.h"

#include <QWidget>

namespace netrove {

/// One side of a painted frame: paints its border and resizes the window by it and its corners. It
/// lies above the client area where it is thicker than the border.
class FrameEdge : public QWidget {
public:
    FrameEdge(QWidget& window, Qt::Edge edge);

    void SetLook(std::shared_ptr<const FrameLook> look);

    /// Takes its place in the window.
    void Place();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// The edges that the window is resized by from this place.
    [[nodiscard]] Qt::Edges EdgesAt(const QPoint& position) const;

    QWidget& window_;
    Qt::Edge edge_;
    MouseDrag drag_;
    std::shared_ptr<const FrameLook> look_;
};

} // namespace netrove
