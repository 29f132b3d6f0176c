#include "desktop/DesktopApplication.h"

#include <exception>

namespace netrove {

bool DesktopApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& failure) {
        qCritical("An event handler failed: %s", failure.what());
        return true;
    }
}

} // namespace netrove
