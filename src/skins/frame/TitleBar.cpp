#include "skins/frame/TitleBar.h"

#include "controls/DialogRead.h"
#include "runtime/SourceText.h"
#include "skins/frame/FramePainter.h"
#include "skins/frame/SystemMenu.h"
#include "skins/frame/WindowAbilities.h"

#include <QContextMenuEvent>
#include <QMouseEvent>

namespace netrove {

TitleBar::TitleBar(QWidget& window, SystemMenu& menu)
    : QWidget(&window)
    , window_(window)
    , menu_(menu)
    , close_(*this, CloseBoxName, FrameCell::Close)
    , maximize_(*this, u"frameButtonMaximize"_s, FrameCell::Maximize)
    , minimize_(*this, u"frameButtonMinimize"_s, FrameCell::Minimize)
    , drag_(window) {
    setObjectName(u"frameTitleBar"_s);
    setAccessibleName(tr("Title bar"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::ArrowCursor);
    connect(&close_, &QAbstractButton::clicked, &window, [&window] { window.close(); });
    connect(&maximize_, &QAbstractButton::clicked, &window, [&window] { ToggleMaximized(window); });
    connect(&minimize_, &QAbstractButton::clicked, &window, [&window] { window.showMinimized(); });
}

void TitleBar::SetLook(std::shared_ptr<const FrameLook> look) {
    look_ = std::move(look);
    for (FrameButton* button : {&close_, &maximize_, &minimize_})
        button->SetLook(look_);
    Refresh();
}

void TitleBar::Refresh() {
    maximize_.SetGlyph(window_.isMaximized() ? FrameCell::Restore : FrameCell::Maximize);
    maximize_.setVisible(CanMaximize(window_));
    minimize_.setVisible(CanMinimize(window_));
    PlaceButtons();
    update();
}

void TitleBar::OpenMenu() {
    menu_.OpenAtIcon(QRect(mapToGlobal(IconRect().topLeft()), IconRect().size()));
}

void TitleBar::PlaceButtons() {
    std::vector<FrameButton*> shown{&close_};
    for (FrameButton* button : {&maximize_, &minimize_}) {
        if (!button->isHidden())
            shown.push_back(button);
    }
    const std::vector<QRect> rects =
        look_->metrics.ButtonRects(width(), static_cast<int>(shown.size()));
    for (std::size_t index = 0; index < shown.size(); ++index)
        shown[index]->setGeometry(rects[index]);
    buttonsLeft_ = rects.back().left();
}

QRect TitleBar::IconRect() const {
    return FramePainter::IconRect(look_->metrics);
}

void TitleBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    FramePainter(*look_, painter, isActiveWindow())
        .PaintTitle(rect(), window_.windowIcon(), window_.windowTitle(), buttonsLeft_);
}

void TitleBar::resizeEvent(QResizeEvent* /*event*/) {
    PlaceButtons();
}

void TitleBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    if (IconRect().contains(event->position().toPoint()))
        OpenMenu();
    else
        drag_.Press(event->globalPosition().toPoint(), {});
}

void TitleBar::mouseMoveEvent(QMouseEvent* event) {
    drag_.Move(event->globalPosition().toPoint());
}

void TitleBar::mouseReleaseEvent(QMouseEvent* /*event*/) {
    drag_.Release();
}

void TitleBar::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    drag_.Release();
    if (IconRect().contains(event->position().toPoint()))
        window_.close();
    else
        ToggleMaximized(window_);
}

void TitleBar::contextMenuEvent(QContextMenuEvent* event) {
    menu_.OpenAt(event->globalPos());
}

} // namespace netrove
