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
/// is served afterwards, in order, before any later input. LiveInput decides what is served at once
/// or dropped instead. A push button looks pressed while the mouse is down on it, though its click
/// comes later. Drags over a window are refused.
///
/// For the thread of the windows; only one object may exist at a time.
class HeldInput : public QObject {
    Q_OBJECT

public:
    HeldInput();

    /// From now on this button, while it's enabled, works at once with the mouse and its own keys.
    void SetLiveButton(QAbstractButton& button) { live_.SetButton(button); }

    void BeginHolding();
    void EndHolding();

    /// Serves what was kept. Does nothing while input is being held.
    void Serve();

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Kept {
        QPointer<QObject> receiver;
        std::unique_ptr<QEvent> event;
        QPointer<QAbstractButton> button; ///< whose look and state differ
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
    const QEvent* sent_ = nullptr; ///< the kept event that is being served, and must pass
    bool isTrying_ = false;        ///< the next shortcut test belongs to the event being served
    int droppedKey_ = 0;           ///< the last key that was dropped; 0 once another is pressed
    quint64 droppedKeyUp_ = 0;     ///< when that key came up, in the window system's time
    bool holding_ = false;
    bool serveIsDue_ = false;
};

} // namespace netrove
