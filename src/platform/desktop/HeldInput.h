#pragma once

#include <QAbstractButton>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QObject>
#include <QPointer>

#include <deque>
#include <memory>

namespace netrove {

/// Keeps what the user does while nobody may act on it: keys, the mouse, close requests. All of it
/// is served afterwards, in its order, before what comes later. One button stays alive meanwhile,
/// for the mouse and for its own keys. What is dragged over a window is refused.
///
/// For the thread of the windows, and for no more than one object at a time.
class HeldInput : public QObject {
    Q_OBJECT

public:
    HeldInput();

    /// The button that stays alive from now on, while it's enabled.
    void SetLiveButton(QAbstractButton& button) { button_ = &button; }

    void BeginHolding() { holding_ = true; }
    void EndHolding();

    /// Serves what was kept. While input is held it does nothing.
    void Serve();

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Kept {
        QPointer<QObject> receiver;
        std::unique_ptr<QEvent> event;
    };

    [[nodiscard]] bool MustKeep() const { return holding_ || !kept_.empty(); }
    [[nodiscard]] bool TakeShortcut(QKeyEvent& event) const;
    [[nodiscard]] bool IsForButton(const QObject* receiver, const QEvent& event);
    [[nodiscard]] bool IsClickOnButton(const QMouseEvent& event);
    [[nodiscard]] bool IsKeyOfButton(const QKeyEvent& event) const;
    [[nodiscard]] bool IsMnemonic(const QKeyEvent& event) const;
    [[nodiscard]] bool PressByMnemonic(const QEvent& event) const;
    [[nodiscard]] bool IsButtonLive() const;
    void Keep(QObject* receiver, const QEvent& event);
    void ServeLater();
    void Send(const Kept& kept);

    QPointer<QAbstractButton> button_;
    std::deque<Kept> kept_;
    const QEvent* sent_ = nullptr; ///< what is being served, and passes
    bool holding_ = false;
    bool serveIsDue_ = false;
    bool buttonIsDown_ = false; ///< by a press of the mouse that has passed
};

} // namespace netrove
