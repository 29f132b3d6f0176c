#include "platform/desktop/HeldInput.h"

#include <QCoreApplication>
#include <QKeySequence>
#include <QScopedValueRollback>
#include <QWindow>

#include <utility>

// Asks for a key's shortcut as a key of the window system does. Qt's own test functions, which are
// part of its headers, use it like this.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* o, ulong timestamp, int k,
                                               Qt::KeyboardModifiers mods,
                                               const QString& text = QString(),
                                               bool autorep = false, ushort count = 1);
QT_END_NAMESPACE

namespace netrove {
namespace {

/// Events that are kept at a time: more than anybody types during a wait.
constexpr std::size_t MaxKept = 2000;

bool IsDrag(QEvent::Type type) {
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
}

/// What comes from the user. Windows get it first, then their widgets; text from an input method
/// goes to the widget at once.
bool IsInput(const QObject& receiver, QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Close:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
        return receiver.isWindowType();
    case QEvent::InputMethod:
        return true;
    default:
        return false;
    }
}

} // namespace

HeldInput::HeldInput() {
    qApp->installEventFilter(this);
}

void HeldInput::EndHolding() {
    holding_ = false;
    buttonIsDown_ = false;
    if (!kept_.empty())
        ServeLater();
}

bool HeldInput::eventFilter(QObject* receiver, QEvent* event) {
    if (!MustKeep() || event == sent_)
        return false;
    if (event->type() == QEvent::ShortcutOverride && receiver->isWindowType())
        return TakeShortcut(*static_cast<QKeyEvent*>(event));
    if (IsDrag(event->type())) {
        event->ignore();
        return true;
    }
    if (!IsInput(*receiver, event->type()))
        return false;
    if (IsForButton(receiver, *event))
        return PressByMnemonic(*event);
    Keep(receiver, *event);
    // A window isn't closed before its request has been served.
    event->setAccepted(event->type() != QEvent::Close);
    return true;
}

/// Before a key comes to a window its shortcuts are tried. One that is kept tries them later.
bool HeldInput::TakeShortcut(QKeyEvent& event) const {
    if (!holding_ || (IsKeyOfButton(event) && !IsMnemonic(event)))
        return false;
    event.accept();
    return true;
}

/// Qt's own way with a mnemonic takes a timer's tick, which doesn't come while input is held.
bool HeldInput::PressByMnemonic(const QEvent& event) const {
    const bool isKey = event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
    if (!isKey || !IsMnemonic(static_cast<const QKeyEvent&>(event)))
        return false;
    if (event.type() == QEvent::KeyPress)
        button_->click();
    return true;
}

bool HeldInput::IsButtonLive() const {
    return holding_ && button_ && button_->isEnabled() && button_->isVisible();
}

bool HeldInput::IsForButton(const QObject* receiver, const QEvent& event) {
    if (!IsButtonLive() || receiver != button_->window()->windowHandle())
        return false;
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return IsKeyOfButton(static_cast<const QKeyEvent&>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        return IsClickOnButton(static_cast<const QMouseEvent&>(event));
    default:
        return false;
    }
}

bool HeldInput::IsClickOnButton(const QMouseEvent& event) {
    const bool isPress =
        event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
    if (!isPress)
        return event.type() == QEvent::MouseButtonRelease ? std::exchange(buttonIsDown_, false)
                                                          : buttonIsDown_;
    const QRect place(button_->mapTo(button_->window(), QPoint()), button_->size());
    buttonIsDown_ = event.button() == Qt::LeftButton && place.contains(event.position().toPoint());
    return buttonIsDown_;
}

bool HeldInput::IsKeyOfButton(const QKeyEvent& event) const {
    if (!IsButtonLive())
        return false;
    const int key = event.key();
    return IsMnemonic(event) ||
           (button_->hasFocus() && (key == Qt::Key_Space || key == Qt::Key_Select ||
                                    key == Qt::Key_Return || key == Qt::Key_Enter));
}

bool HeldInput::IsMnemonic(const QKeyEvent& event) const {
    return event.keyCombination() == QKeySequence::mnemonic(button_->text())[0];
}

/// Of moves of the mouse in a row the last one is enough.
void HeldInput::Keep(QObject* receiver, const QEvent& event) {
    if (event.type() == QEvent::MouseMove && !kept_.empty() && kept_.back().receiver == receiver &&
        kept_.back().event->type() == QEvent::MouseMove)
        kept_.pop_back();
    if (kept_.size() < MaxKept)
        kept_.push_back({receiver, std::unique_ptr<QEvent>(event.clone())});
    if (!holding_)
        ServeLater();
}

/// From the event loop that runs then, also one inside a handler that is being served.
void HeldInput::ServeLater() {
    if (std::exchange(serveIsDue_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            serveIsDue_ = false;
            Serve();
        },
        Qt::QueuedConnection);
}

void HeldInput::Serve() {
    while (!holding_ && !kept_.empty()) {
        const Kept next = std::move(kept_.front());
        kept_.pop_front();
        if (!kept_.empty())
            ServeLater();
        if (next.receiver)
            Send(next);
    }
}

void HeldInput::Send(const Kept& kept) {
    if (kept.event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*kept.event);
        if (qt_sendShortcutOverrideEvent(kept.receiver, key.timestamp(), key.key(), key.modifiers(),
                                         key.text(), key.isAutoRepeat(),
                                         static_cast<ushort>(key.count())) ||
            !kept.receiver)
            return;
    }
    const QScopedValueRollback<const QEvent*> sent(sent_, kept.event.get());
    QCoreApplication::sendEvent(kept.receiver, kept.event.get());
}

} // namespace netrove
