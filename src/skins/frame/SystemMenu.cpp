#include "skins/frame/SystemMenu.h"

#include "runtime/SourceText.h"
#include "skins/frame/KeyboardDrag.h"
#include "skins/frame/WindowAbilities.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>

namespace netrove {

SystemMenu::SystemMenu(QWidget& window, KeyboardDrag& keyboardDrag)
    : QMenu(&window)
    , window_(window)
    , restore_(addAction(tr("&Restore"), &window, [&window] { window.showNormal(); }))
    , move_(addAction(tr("&Move"), &keyboardDrag, &KeyboardDrag::BeginMove))
    , size_(addAction(tr("&Size"), &keyboardDrag, &KeyboardDrag::BeginResize))
    , minimize_(addAction(tr("Mi&nimize"), &window, [&window] { window.showMinimized(); }))
    , maximize_(addAction(tr("Ma&ximize"), &window, [&window] { window.showMaximized(); })) {
    addSeparator();
    close_ = addAction(tr("&Close"), QKeySequence(Qt::ALT | Qt::Key_F4), &window,
                       [&window] { window.close(); });
    setObjectName(u"frameSystemMenu"_s);
    setAccessibleName(tr("System menu"));
    setDefaultAction(close_);
}

void SystemMenu::SetKeysOn(bool on) {
    // Most desktops close a window by Alt+F4 themselves; on the others it's this action that does.
    if (on)
        window_.addAction(close_);
    else
        window_.removeAction(close_);
}

void SystemMenu::OpenAt(const QPoint& onScreen) {
    SetStates();
    icon_ = QRect();
    popup(onScreen);
}

void SystemMenu::OpenAtIcon(const QRect& onScreen) {
    OpenAt(onScreen.bottomLeft() + QPoint(0, 1));
    icon_ = onScreen;
    sinceOpened_.start();
}

void SystemMenu::SetStates() {
    const Qt::Edges all = Qt::LeftEdge | Qt::RightEdge | Qt::TopEdge | Qt::BottomEdge;
    restore_->setEnabled(CanRestore(window_));
    restore_->setVisible(CanMaximize(window_));
    move_->setEnabled(CanMove(window_));
    size_->setEnabled(ResizableEdges(window_, all) != Qt::Edges());
    minimize_->setVisible(CanMinimize(window_));
    maximize_->setVisible(CanMaximize(window_));
    maximize_->setEnabled(!window_.isMaximized());
}

bool SystemMenu::ClosesByDoubleClick(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton || !icon_.contains(event.globalPosition().toPoint()) ||
        sinceOpened_.elapsed() > QGuiApplication::styleHints()->mouseDoubleClickInterval())
        return false;
    hide();
    close_->trigger();
    return true;
}

void SystemMenu::mousePressEvent(QMouseEvent* event) {
    if (!ClosesByDoubleClick(*event))
        QMenu::mousePressEvent(event);
}

void SystemMenu::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!ClosesByDoubleClick(*event))
        QMenu::mouseDoubleClickEvent(event);
}

} // namespace netrove
