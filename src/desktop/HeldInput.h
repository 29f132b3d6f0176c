#pragma once

#include "desktop/LiveInput.h"

#include <QAbstractButton>
#include <QEvent>
#include <QObject>
#include <QPointer>

#include <deque>
#include <memory>

namespace netrove {

/// Keeps what the user does while nobody may act on it: keys, the mouse, close requests. All of it
/// is served afterwards, in its order, before what comes later. What LiveInput names is served at
/// once, or dropped. A push button looks pressed while the mouse is down on it, though its click
/// comes later. What is dragged over a window is refused.
///
/// For the thread of the windows, and for no more than one object at a time.
class HeldInput : public QObject {
    Q_OBJECT

public:
    HeldInput();

    /// The button that stays alive from now on, while it's enabled: for the mouse and for its own
    /// keys.
    void SetLiveButton(QAbstractButton& button) { live_.SetButton(button); }

    void BeginHolding();
    void EndHolding();

    /// Serves what was kept. While input is held it does nothing.
    void Serve();

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Kept {
        QPointer<QObject> receiver;
        std::unique_ptr<QEvent> event;
        QPointer<QAbstractButton> button; ///< that doesn't know what it looks like
    };

    [[nodiscard]] bool MustKeep() const { return holding_ || !kept_.empty(); }
    [[nodiscard]] bool Take(QObject* receiver, QEvent& event);
    [[nodiscard]] bool IsRepeat(QEvent& event);
    [[nodiscard]] bool IsNext() const;
    void Keep(QObject* receiver, const QEvent& event);
    void ServeLater();
    void Send(const Kept& kept);

    LiveInput live_;
    MousePress press_;
    std::deque<Kept> kept_;
    const QEvent* sent_ = nullptr; ///< what is being served, and passes
    bool isTrying_ = false;        ///< the shortcut of what is being served comes next
    int droppedKey_ = 0;           ///< the last key that was dropped; 0 once another is pressed
    quint64 droppedKeyUp_ = 0;     ///< when that key came up, in the window system's time
    bool holding_ = false;
    bool serveIsDue_ = false;
};

} // namespace netrove
