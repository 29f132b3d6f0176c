#include "desktop/SessionBus.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QFile>

#include <memory>

#include <dbus/dbus.h>

namespace netrove {
namespace {

constexpr auto Variable = "DBUS_SESSION_BUS_ADDRESS";

struct EndConnection {
    void operator()(DBusConnection* connection) const {
        dbus_connection_close(connection);
        dbus_connection_unref(connection);
    }
};
struct EndMessage {
    void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using Message = std::unique_ptr<DBusMessage, EndMessage>;

/// Empty where there is no bus, or where it would have to be started first.
QByteArray BusAddress() {
    if (!qEnvironmentVariableIsEmpty(Variable))
        return qgetenv(Variable);
    const QByteArray path = qgetenv("XDG_RUNTIME_DIR") + "/bus";
    return QFile::exists(QFile::decodeName(path)) ? "unix:path=" + path : QByteArray();
}

/// Greets the bus, as every program does that connects to it. Also true where there is no bus to
/// connect to: the toolkit notices that at once.
bool Answers(const QByteArray& address, const QDeadlineTimer& limit) {
    const std::unique_ptr<DBusConnection, EndConnection> connection(
        dbus_connection_open_private(address.constData(), nullptr));
    if (!connection)
        return true;
    dbus_connection_set_exit_on_disconnect(connection.get(), FALSE);
    const Message hello(dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS,
                                                     DBUS_INTERFACE_DBUS, "Hello"));
    if (!hello || !dbus_connection_send(connection.get(), hello.get(), nullptr))
        return true;
    while (!limit.hasExpired()) {
        const bool isConnected =
            dbus_connection_read_write(connection.get(), static_cast<int>(limit.remainingTime()));
        if (const Message answer(dbus_connection_pop_message(connection.get()));
            answer || !isConnected)
            return true;
    }
    return false;
}

} // namespace

void LeaveSilentSessionBus(std::chrono::milliseconds limit) {
    const QByteArray address = BusAddress();
    if (!address.isEmpty() && !Answers(address, QDeadlineTimer(limit)))
        qputenv(Variable, "disabled:");
}

} // namespace netrove
