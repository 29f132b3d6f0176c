#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <xcb/xcb.h>

namespace netrove {

/// Whether an X11 desktop has a tray that takes windows of programs (the XEMBED protocol). On other
/// desktops there never is one.
///
/// The toolkit could tell, but it checks only once whether the session bus has a tray, and sticks
/// to the answer. So it mustn't be asked before there is a tray.
class X11Tray : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11Tray();

    [[nodiscard]] bool IsThere() const { return owner_ != XCB_NONE; }

Q_SIGNALS:
    /// Raised from the event loop.
    void Changed();

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    [[nodiscard]] xcb_atom_t Atom(const QByteArray& name) const;
    [[nodiscard]] xcb_window_t FindOwner() const;
    void Look();

    xcb_connection_t* connection_ = nullptr;
    xcb_atom_t selection_ = XCB_NONE; ///< owned by the tray
    xcb_atom_t manager_ = XCB_NONE;   ///< the message by which a new owner announces itself
    xcb_window_t owner_ = XCB_NONE;
};

} // namespace netrove
