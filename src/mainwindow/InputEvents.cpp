#include "mainwindow/InputEvents.h"

#include <QMouseEvent>

namespace netrove {

InputEvents::InputEvents(const WindowControls& controls, PredefinedPatterns& patterns,
                         SearchStart& start)
    : controls_(controls), patterns_(patterns), start_(start) {
    controls_.LstSearchFor.installEventFilter(this);
    controls_.imgFiles.installEventFilter(this);
    controls_.cmdInpNetNode.installEventFilter(this);
}

bool InputEvents::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<QMouseEvent*>(event);
        if (watched == &controls_.imgFiles)
            patterns_.imgFiles_MouseDown(press->button(), press->pos());
        else if (watched == &controls_.cmdInpNetNode && press->button() == Qt::RightButton)
            start_.cmdInpNetNode_Click();
    } else if (event->type() == QEvent::FocusIn && watched == &controls_.LstSearchFor) {
        LstSearchFor_FocusIn(static_cast<QFocusEvent*>(event)->reason());
    }
    return QObject::eventFilter(watched, event);
}

/// Coming back from a menu or another window doesn't count: the control has never really lost the
/// focus.
void InputEvents::LstSearchFor_FocusIn(Qt::FocusReason reason) {
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
        reason == Qt::MenuBarFocusReason)
        return;
    // The press that gives the focus also moves the cursor, right afterwards.
    if (reason == Qt::MouseFocusReason)
        QMetaObject::invokeMethod(
            this, [this] { patterns_.LstSearchFor_GotFocus(); }, Qt::QueuedConnection);
    else
        patterns_.LstSearchFor_GotFocus();
}

} // namespace netrove
