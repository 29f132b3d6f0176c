#include "desktop/NotifierHost.h"

#include "runtime/SourceText.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace netrove {
namespace {

QString Service() {
    return u"org.kde.StatusNotifierWatcher"_s;
}

QString Path() {
    return u"/StatusNotifierWatcher"_s;
}

} // namespace

NotifierHost::NotifierHost() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    watcher_.setConnection(bus);
    watcher_.addWatchedService(Service());
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, &NotifierHost::Ask);
    connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, [this] { Set(false); });
    for (const auto& signal :
         {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s})
        bus.connect(Service(), Path(), Service(), signal, this, SLOT(Ask()));
    Ask();
}

/// Asks for a host: a watcher alone takes icons that nobody sees.
void NotifierHost::Ask() {
    QDBusMessage message = QDBusMessage::createMethodCall(
        Service(), Path(), u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    message.setArguments({Service(), u"IsStatusNotifierHostRegistered"_s});
    message.setAutoStartService(false);
    const auto* answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* got) {
        const QDBusPendingReply<QDBusVariant> reply = *got;
        Set(reply.isValid() && reply.value().variant().toBool());
        got->deleteLater();
    });
}

void NotifierHost::Set(bool isThere) {
    if (std::exchange(isThere_, isThere) != isThere)
        Q_EMIT Changed();
}

} // namespace netrove
