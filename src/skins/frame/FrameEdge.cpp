#include "skins/frame/FrameEdge.h"

#include "runtime/SourceText.h"
#include "skins/frame/FramePainter.h"
#include "skins/frame/WindowAbilities.h"

#include <QMouseEvent>

#include <algorithm>

namespace netrove {
namespace {

/// The least thickness at which the mouse finds an edge, and the least length of a corner.
constexpr int GripThickness = 4;
constexpr int CornerLength = 12;

Qt::CursorShape CursorOf(Qt::Edges edges) {
    const bool horizontal = (edges & (Qt::LeftEdge | Qt::RightEdge)) != 0;
    const bool vertical = (edges & (Qt::TopEdge | Qt::BottomEdge)) != 0;
    if (horizontal && vertical) {
        const bool falling =
            edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge);
        return falling ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
    }
    if (horizontal)
        return Qt::SizeHorCursor;
    return vertical ? Qt::SizeVerCursor : Qt::ArrowCursor;
}

QString EdgeName(Qt::Edge edge) {
    switch (edge) {
    case Qt::TopEdge:
        return u"frameEdgeTop"_s;
    case Qt::LeftEdge:
        return u"frameEdgeLeft"_s;
    case Qt::RightEdge:
        return u"frameEdgeRight"_s;
    case Qt::BottomEdge:
        break;
    }
    return u"frameEdgeBottom"_s;
}

} // namespace

FrameEdge::FrameEdge(QWidget& window, Qt::Edge edge)
    : QWidget(&window), window_(window), edge_(edge), drag_(window) {
    setObjectName(EdgeName(edge));
    setMouseTracking(true);
}

void FrameEdge::SetLook(std::shared_ptr<const FrameLook> look) {
    look_ = std::move(look);
    update();
}

void FrameEdge::Place() {
    const QRect all = window_.rect();
    const int thickness =
        edge_ == Qt::TopEdge ? GripThickness : std::max(look_->metrics.border, GripThickness);
    switch (edge_) {
    case Qt::TopEdge:
        setGeometry(0, 0, all.width(), thickness);
        break;
    case Qt::LeftEdge:
        setGeometry(0, 0, thickness, all.height());
        break;
    case Qt::RightEdge:
        setGeometry(all.width() - thickness, 0, thickness, all.height());
        break;
    case Qt::BottomEdge:
        setGeometry(0, all.height() - thickness, all.width(), thickness);
        break;
    }
}

Qt::Edges FrameEdge::EdgesAt(const QPoint& position) const {
    const QPoint inWindow = mapToParent(position);
    Qt::Edges edges = edge_;
    if (edge_ == Qt::TopEdge || edge_ == Qt::BottomEdge) {
        edges.setFlag(Qt::LeftEdge, inWindow.x() < CornerLength);
        edges.setFlag(Qt::RightEdge, inWindow.x() >= window_.width() - CornerLength);
    } else {
        edges.setFlag(Qt::TopEdge, inWindow.y() < CornerLength);
        edges.setFlag(Qt::BottomEdge, inWindow.y() >= window_.height() - CornerLength);
    }
    return ResizableEdges(window_, edges);
}

void FrameEdge::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.translate(-pos());
    FramePainter(*look_, painter, isActiveWindow()).PaintBorder(window_.rect());
}

void FrameEdge::mousePressEvent(QMouseEvent* event) {
    const Qt::Edges edges = EdgesAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && edges)
        drag_.Press(event->globalPosition().toPoint(), edges);
}

void FrameEdge::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton)
        setCursor(CursorOf(EdgesAt(event->position().toPoint())));
    else
        drag_.Move(event->globalPosition().toPoint());
}

void FrameEdge::mouseReleaseEvent(QMouseEvent* /*event*/) {
    drag_.Release();
}

} // namespace netrove
