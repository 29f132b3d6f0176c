#include "skins/frame/FrameParts.h"

#include "skins/frame/WindowAbilities.h"

namespace netrove {

FrameParts::FrameParts(QWidget& window)
    : QObject(&window)
    , window_(window)
    , keyboardDrag_(new KeyboardDrag(window))
    , menu_(new SystemMenu(window, *keyboardDrag_))
    , titleBar_(new TitleBar(window, *menu_))
    , left_(new FrameEdge(window, Qt::LeftEdge))
    , right_(new FrameEdge(window, Qt::RightEdge))
    , bottom_(new FrameEdge(window, Qt::BottomEdge))
    , top_(new FrameEdge(window, Qt::TopEdge))
    , menuKey_(new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Space), &window)) {
    connect(menuKey_, &QShortcut::activated, titleBar_, &TitleBar::OpenMenu);
    Hide();
}

std::array<FrameEdge*, 4> FrameParts::Edges() {
    return {left_, right_, bottom_, top_};
}

void FrameParts::SetLook(const std::shared_ptr<const FrameLook>& look) {
    look_ = look;
    titleBar_->SetLook(look);
    for (FrameEdge* edge : Edges())
        edge->SetLook(look);
}

void FrameParts::Show() {
    menu_->SetKeysOn(true);
    menuKey_->setEnabled(true);
    Place();
    titleBar_->show();
    titleBar_->raise();
    const bool bordered = !FillsScreen(window_);
    for (FrameEdge* edge : Edges()) {
        edge->setVisible(bordered);
        edge->raise();
    }
    // Otherwise the upper edge belongs to the title bar too, and moves the window.
    top_->setVisible(bordered && ResizableEdges(window_, Qt::TopEdge) != Qt::Edges());
}

void FrameParts::Hide() {
    menu_->SetKeysOn(false);
    menuKey_->setEnabled(false);
    titleBar_->hide();
    for (FrameEdge* edge : Edges())
        edge->hide();
}

void FrameParts::Place() {
    titleBar_->setGeometry(0, 0, window_.width(), look_->metrics.titleHeight);
    for (FrameEdge* edge : Edges())
        edge->Place();
}

void FrameParts::Refresh() {
    titleBar_->Refresh();
    for (FrameEdge* edge : Edges())
        edge->update();
}

} // namespace netrove
