#include "windowservices/OwnedWindows.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

namespace netrove {

void OwnAnew(const QWindow& owner) {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // A platform without a display may have the interface but no connection.
    if (!x11 || !x11->connection())
        return;
    const auto id = xcb_window_t(owner.winId());
    for (const QWindow* window : QGuiApplication::topLevelWindows()) {
        if (window->transientParent() == &owner && window->handle())
            xcb_change_property(x11->connection(), XCB_PROP_MODE_REPLACE,
                                xcb_window_t(window->winId()), XCB_ATOM_WM_TRANSIENT_FOR,
                                XCB_ATOM_WINDOW, 32, 1, &id);
    }
    xcb_flush(x11->connection());
}

} // namespace netrove
