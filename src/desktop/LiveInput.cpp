#include "desktop/LiveInput.h"

#include "controls/DialogRead.h"
#include "controls/DisplayTimer.h"

#include <QKeySequence>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>

namespace netrove {
namespace {

bool IsKey(const QEvent& event) {
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
}

bool IsMnemonic(const QAbstractButton& button, const QKeyEvent& key) {
    const QKeySequence mnemonic = QKeySequence::mnemonic(button.text());
    return !mnemonic.isEmpty() && key.keyCombination() == mnemonic[0];
}

bool ReadsFor(const QObject& receiver) {
    return DialogRead::Current() && DialogRead::Current()->IsOf(receiver);
}

bool Closes(const QEvent& event) {
    return event.type() == QEvent::Close ||
           (IsKey(event) && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape);
}

} // namespace

LiveInput::Course LiveInput::CourseOf(const QObject& receiver, const QEvent& event,
                                      const MousePress& press, bool isNext) {
    const bool isForReader = ReadsFor(receiver);
    const bool isNow = isNext || isForReader;
    if (isForReader && Closes(event))
        return Course::Serve;
    if (IsKey(event) && Presses(receiver, static_cast<const QKeyEvent&>(event)))
        return Course::Drop;
    if (Serves(receiver, event, press, isNow))
        return Course::Serve;
    if (MousePress::IsPress(event) && isNow &&
        scrolling_.Begin(press.Widget(), static_cast<const QMouseEvent&>(event)))
        return Course::Drop;
    return isForReader ? Course::Drop : Course::Keep;
}

bool LiveInput::MayTryShortcut(const QObject& window, const QKeyEvent& key) const {
    const bool closesReader = key.keyCombination() == (Qt::ALT | Qt::Key_F4) && ReadsFor(window);
    return closesReader || IsKeyOfButton(window, key);
}

void LiveInput::GoOn() const {
    for (QAbstractButton* button : Buttons())
        FireDueTimers(*button);
}

std::vector<QAbstractButton*> LiveInput::Buttons() const {
    std::vector<QAbstractButton*> buttons;
    if (button_)
        buttons.push_back(button_);
    if (const DialogRead* read = DialogRead::Current())
        buttons.insert(buttons.end(), read->Closers().begin(), read->Closers().end());
    std::erase_if(buttons, [](const QAbstractButton* button) {
        return !button->isEnabled() || !button->isVisible();
    });
    return buttons;
}

bool LiveInput::IsLive(const QWidget* widget) const {
    return std::ranges::count(Buttons(), widget) > 0;
}

/// Whether the key presses the button, which must have the focus. Buttons that close a dialog don't
/// count: one may have got the focus from a button that was disabled while the key was down on it.
bool LiveInput::IsKeyOfButton(const QObject& window, const QKeyEvent& key) const {
    if (!IsLive(button_) || !button_->hasFocus() || button_->window()->windowHandle() != &window)
        return false;
    return key.key() == Qt::Key_Space || key.key() == Qt::Key_Select ||
           key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// Whether the key is a button's mnemonic; if so, presses the button.
bool LiveInput::Presses(const QObject& window, const QKeyEvent& key) const {
    for (QAbstractButton* button : Buttons()) {
        if (button->window()->windowHandle() != &window || !IsMnemonic(*button, key))
            continue;
        if (key.type() == QEvent::KeyPress && !button->isDown())
            button->animateClick();
        return true;
    }
    return false;
}

bool LiveInput::Serves(const QObject& receiver, const QEvent& event, const MousePress& press,
                       bool isNow) const {
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return IsKeyOfButton(receiver, static_cast<const QKeyEvent&>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return IsLive(press.Widget());
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        return press.IsServed() && (IsLive(press.Widget()) || ScrollInput::IsBar(press.Widget()));
    case QEvent::Wheel:
        return isNow &&
               ScrollInput::IsOverView(receiver, static_cast<const QWheelEvent&>(event).position());
    default:
        return false;
    }
}

} // namespace netrove
