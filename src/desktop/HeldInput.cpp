#include "desktop/HeldInput.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

// Tries a key's shortcuts as for a key from the window system. Qt's test functions declare it like
// this in a public header.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* o, ulong timestamp, int k,
                                               Qt::KeyboardModifiers mods,
                                               const QString& text = QString(),
                                               bool autorep = false, ushort count = 1);
QT_END_NAMESPACE

namespace netrove {
namespace {

/// The most events that are kept at a time: more than anybody types during a wait.
constexpr std::size_t MaxKept = 2000;

bool IsDrag(QEvent::Type type) {
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
}

/// Whether the event comes from the user. Windows get such events first, then their widgets; text
/// from an input method goes to the widget directly.
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

void HeldInput::BeginHolding() {
    holding_ = true;
    live_.GoOn();
}

void HeldInput::EndHolding() {
    holding_ = false;
    if (!kept_.empty())
        ServeLater();
}

bool HeldInput::eventFilter(QObject* receiver, QEvent* event) {
    if (receiver->isWindowType() && (live_.Continue(*receiver, *event) || IsRepeat(*event)))
        return true;
    if (event->type() == QEvent::ShortcutOverride && std::exchange(isTrying_, false))
        return false;
    if (receiver->isWindowType())
        press_.Begin(*receiver, *event);
    const bool isTaken = MustKeep() && event != sent_ && Take(receiver, *event);
    if (receiver->isWindowType())
        press_.End(*event, !isTaken);
    return isTaken;
}

/// Takes an event away from its receiver, unless it is to be served now.
bool HeldInput::Take(QObject* receiver, QEvent& event) {
    if (event.type() == QEvent::ShortcutOverride && receiver->isWindowType()) {
        // The shortcuts of a kept key are tried when it's served.
        event.setAccepted(!holding_ ||
                          !live_.MayTryShortcut(*receiver, static_cast<QKeyEvent&>(event)));
        return event.isAccepted();
    }
    if (IsDrag(event.type())) {
        event.ignore();
        return true;
    }
    if (!IsInput(*receiver, event.type()))
        return false;
    const LiveInput::Course course =
        holding_ ? live_.CourseOf(*receiver, event, press_, IsNext()) : LiveInput::Course::Keep;
    if (course == LiveInput::Course::Serve)
        return false;
    if (course == LiveInput::Course::Keep)
        Keep(receiver, event);
    else if (event.type() == QEvent::KeyPress)
        droppedKey_ = static_cast<QKeyEvent&>(event).key();
    // A window must not close before its close request has been served.
    event.setAccepted(event.type() != QEvent::Close);
    return true;
}

/// Whether it's a repetition of a dropped key that hasn't come up since. The window system reports
/// repetitions as releases and presses with the same time, and Qt doesn't recognise all of them.
bool HeldInput::IsRepeat(QEvent& event) {
    const bool isRelease = event.type() == QEvent::KeyRelease;
    if (droppedKey_ == 0 || (!isRelease && event.type() != QEvent::ShortcutOverride &&
                             event.type() != QEvent::KeyPress))
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    if (key.key() == droppedKey_ && isRelease)
        droppedKeyUp_ = key.timestamp();
    else if (key.key() == droppedKey_ && (key.isAutoRepeat() || key.timestamp() == droppedKeyUp_))
        event.accept();
    else if (!isRelease)
        droppedKey_ = 0;
    return droppedKey_ != 0 && !isRelease;
}

/// Whether nothing is kept that has to be served first: moves of the mouse needn't.
bool HeldInput::IsNext() const {
    return std::ranges::all_of(
        kept_, [](const Kept& kept) { return kept.event->type() == QEvent::MouseMove; });
}

/// Of several moves of the mouse in a row, only the last is kept.
void HeldInput::Keep(QObject* receiver, const QEvent& event) {
    if (event.type() == QEvent::MouseMove && !kept_.empty() && kept_.back().receiver == receiver &&
        kept_.back().event->type() == QEvent::MouseMove)
        kept_.pop_back();
    if (kept_.size() < MaxKept)
        kept_.push_back({receiver, std::unique_ptr<QEvent>(event.clone()), press_.Show(event)});
    if (!holding_)
        ServeLater();
}

/// Serves from whichever event loop runs next, even one inside the handler of a served event.
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
    if (kept.button)
        kept.button->setDown(!MousePress::IsPress(*kept.event));
    if (kept.event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*kept.event);
        const QScopedValueRollback trying(isTrying_, true);
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
