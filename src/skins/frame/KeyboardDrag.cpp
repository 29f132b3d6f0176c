#include "skins/frame/KeyboardDrag.h"

#include <QApplication>
#include <QKeyEvent>

namespace netrove {
namespace {

constexpr int StepLength = 8;

} // namespace

void KeyboardDrag::Begin(bool resize) {
    End();
    resize_ = resize;
    start_ = window_.geometry();
    qApp->installEventFilter(this);
    QApplication::setOverrideCursor(resize ? Qt::SizeFDiagCursor : Qt::SizeAllCursor);
}

void KeyboardDrag::End() {
    if (!IsOn())
        return;
    start_.reset();
    qApp->removeEventFilter(this);
    QApplication::restoreOverrideCursor();
}

bool KeyboardDrag::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride: // so that no shortcut takes the key
        event->accept();
        return true;
    case QEvent::KeyPress:
        Press(static_cast<const QKeyEvent&>(*event));
        return true;
    case QEvent::KeyRelease:
        return true;
    case QEvent::MouseButtonPress:
        End();
        return false;
    case QEvent::WindowDeactivate:
    case QEvent::Hide:
        if (watched == &window_)
            End();
        return false;
    default:
        return false;
    }
}

void KeyboardDrag::Press(const QKeyEvent& event) {
    const int length = event.modifiers() & Qt::ControlModifier ? 1 : StepLength;
    switch (event.key()) {
    case Qt::Key_Left:
        return Step({-length, 0});
    case Qt::Key_Right:
        return Step({length, 0});
    case Qt::Key_Up:
        return Step({0, -length});
    case Qt::Key_Down:
        return Step({0, length});
    case Qt::Key_Escape:
        window_.setGeometry(*start_);
        return End();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return End();
    default:
        return;
    }
}

void KeyboardDrag::Step(const QPoint& by) {
    if (resize_)
        window_.resize(window_.size() + QSize(by.x(), by.y()));
    else
        window_.move(window_.pos() + by);
}

} // namespace netrove
