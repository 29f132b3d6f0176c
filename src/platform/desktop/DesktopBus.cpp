#include "platform/desktop/DesktopBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QFileInfo>
#include <QVariantMap>

namespace netrove::DesktopBus {

namespace {

/// Time for the service to start; the call returns when the request has been taken, not when the
/// user has answered.
constexpr int CallMilliseconds = 3000;

bool Call(QDBusMessage message, const QVariantList& arguments) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    message.setArguments(arguments);
    return bus.call(message, QDBus::Block, CallMilliseconds).type() == QDBusMessage::ReplyMessage;
}

QDBusMessage PortalCall(const QString& method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                          QStringLiteral("/org/freedesktop/portal/desktop"),
                                          QStringLiteral("org.freedesktop.portal.OpenURI"), method);
}

} // namespace

bool ShowInFolder(const QUrl& address) {
    const QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    const QStringList items(QString::fromLatin1(address.toEncoded()));
    return Call(message, {items, QString()});
}

bool AskWhichProgram(const QUrl& address) {
    const QVariantMap options{{QStringLiteral("ask"), true}};
    if (!address.isLocalFile()) {
        const QString text = QString::fromLatin1(address.toEncoded());
        return Call(PortalCall(QStringLiteral("OpenURI")), {QString(), text, options});
    }
    // The portal takes local files as open descriptors only. Opening a pipe would
    // wait for its other end.
    QFile file(address.toLocalFile());
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QVariant descriptor = QVariant::fromValue(QDBusUnixFileDescriptor(file.handle()));
    return Call(PortalCall(QStringLiteral("OpenFile")), {QString(), descriptor, options});
}

} // namespace netrove::DesktopBus
