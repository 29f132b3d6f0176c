#include "desktop/X11Tray.h"

#include <QGuiApplication>

#include <cstdlib>
#include <memory>
#include <utility>

namespace netrove {
namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

/// The number of the display's screen that the program is on.
int ScreenNumber() {
    char* host = nullptr;
    int display = 0;
    int screen = 0;
    if (xcb_parse_display(nullptr, &host, &display, &screen) == 0)
        return 0;
    std::free(host);
    return screen;
}

} // namespace

X11Tray::X11Tray() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // A platform without a display may have the interface but no connection.
    if (!x11 || !x11->connection())
        return;
    connection_ = x11->connection();
    selection_ = Atom("_NET_SYSTEM_TRAY_S" + QByteArray::number(ScreenNumber()));
    manager_ = Atom("MANAGER");
    qGuiApp->installNativeEventFilter(this);
    owner_ = FindOwner();
}

xcb_atom_t X11Tray::Atom(const QByteArray& name) const {
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_,
        xcb_intern_atom(connection_, 0, static_cast<uint16_t>(name.size()), name.constData()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_NONE};
}

/// Also asks to be notified when the owner's window goes.
xcb_window_t X11Tray::FindOwner() const {
    const Owned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection_, xcb_get_selection_owner(connection_, selection_), nullptr));
    if (!reply || reply->owner == XCB_NONE)
        return XCB_NONE;
    // The toolkit sets the same mask.
    const uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    const Owned<xcb_generic_error_t> gone(xcb_request_check(
        connection_,
        xcb_change_window_attributes_checked(connection_, reply->owner, XCB_CW_EVENT_MASK, &mask)));
    return gone ? xcb_window_t{XCB_NONE} : reply->owner;
}

bool X11Tray::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/) {
    if (eventType != "xcb_generic_event_t")
        return false;
    constexpr uint8_t sentByProgram = 0x80;
    switch (static_cast<xcb_generic_event_t*>(message)->response_type & ~sentByProgram) {
    case XCB_CLIENT_MESSAGE: {
        const auto& sent = *static_cast<xcb_client_message_event_t*>(message);
        if (sent.type == manager_ && sent.data.data32[1] == selection_)
            Look();
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (static_cast<xcb_destroy_notify_event_t*>(message)->window == owner_)
            Look();
        break;
    default:
        break;
    }
    return false;
}

void X11Tray::Look() {
    const bool wasThere = IsThere();
    owner_ = FindOwner();
    if (IsThere() != wasThere)
        QMetaObject::invokeMethod(this, &X11Tray::Changed, Qt::QueuedConnection);
}

} // namespace netrove
