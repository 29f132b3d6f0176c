#include "skins/frame/MouseDrag.h"

#include "skins/frame/WindowAbilities.h"

#include <QApplication>
#include <QWindow>

#include <algorithm>

namespace netrove {

void MouseDrag::Press(const QPoint& onScreen, Qt::Edges edges) {
    press_ = Start{.onScreen = onScreen, .edges = edges, .window = window_.geometry()};
}

void MouseDrag::Move(const QPoint& onScreen) {
    if (!press_)
        return;
    const QPoint moved = onScreen - press_->onScreen;
    if (!press_->moving) {
        const int threshold = press_->edges ? 1 : QApplication::startDragDistance();
        if (moved.manhattanLength() < threshold)
            return;
        press_->moving = true;
        if (DesktopTakesOver()) {
            Release();
            return;
        }
    }
    Follow(moved);
}

bool MouseDrag::DesktopTakesOver() const {
    QWindow& window = *window_.windowHandle();
    return press_->edges ? window.startSystemResize(press_->edges) : window.startSystemMove();
}

void MouseDrag::Follow(const QPoint& moved) {
    if (FillsScreen(window_))
        return;
    QRect to = press_->window;
    if (!press_->edges) {
        window_.move(to.topLeft() + moved);
        return;
    }
    const QSize least = window_.minimumSize().expandedTo(window_.minimumSizeHint());
    const QSize most = window_.maximumSize().expandedTo(least);
    const auto length = [](int asked, int low, int high) { return std::clamp(asked, low, high); };
    if (press_->edges & Qt::LeftEdge)
        to.setLeft(to.right() + 1 - length(to.width() - moved.x(), least.width(), most.width()));
    if (press_->edges & Qt::RightEdge)
        to.setWidth(length(to.width() + moved.x(), least.width(), most.width()));
    if (press_->edges & Qt::TopEdge)
        to.setTop(to.bottom() + 1 - length(to.height() - moved.y(), least.height(), most.height()));
    if (press_->edges & Qt::BottomEdge)
        to.setHeight(length(to.height() + moved.y(), least.height(), most.height()));
    window_.setGeometry(to);
}

} // namespace netrove
