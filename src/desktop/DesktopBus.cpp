#include "desktop/DesktopBus.h"

#include "runtime/SourceText.h"

#include <QDBusPendingCallWatcher>
#include <QDBusUnixFileDescriptor>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QTimer>
#include <QVariantMap>

#include <thread>

namespace netrove {
namespace {

constexpr std::chrono::milliseconds Step{1};
constexpr std::chrono::milliseconds AtOnce{1};

QDBusMessage PortalCall(const QString& method) {
    return QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s,
                                          u"/org/freedesktop/portal/desktop"_s,
                                          u"org.freedesktop.portal.OpenURI"_s, method);
}

} // namespace

/// Sleeps between looks at the answer: Qt receives it in a thread of its own.
bool DesktopBus::Call(QDBusMessage message, const QVariantList& arguments,
                      const Shell::Failed& failed) {
    if (!bus_.isConnected())
        return false;
    message.setArguments(arguments);
    const QDBusPendingCall call = bus_.asyncCall(message);
    const QDeadlineTimer limit(Limit);
    while (!call.isFinished() && !limit.hasExpired())
        std::this_thread::sleep_for(Step);
    if (call.isFinished())
        return !call.isError();
    auto* watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, failed](QDBusPendingCallWatcher* finished) {
                if (finished->isError() && failed)
                    QTimer::singleShot(AtOnce, this, failed);
                finished->deleteLater();
            });
    return true;
}

bool DesktopBus::ShowInFolder(const QUrl& address, const Shell::Failed& failed) {
    const QDBusMessage message = QDBusMessage::createMethodCall(
        u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
        u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    const QStringList items(QString::fromLatin1(address.toEncoded()));
    return Call(message, {items, QString()}, failed);
}

bool DesktopBus::AskWhichProgram(const QUrl& address, const Shell::Failed& failed) {
    const QVariantMap options{{u"ask"_s, true}};
    if (!address.isLocalFile()) {
        const QString text = QString::fromLatin1(address.toEncoded());
        return Call(PortalCall(u"OpenURI"_s), {QString(), text, options}, failed);
    }
    // The portal takes local files as open descriptors only. Opening a pipe would
    // wait for its other end.
    QFile file(address.toLocalFile());
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QVariant descriptor = QVariant::fromValue(QDBusUnixFileDescriptor(file.handle()));
    return Call(PortalCall(u"OpenFile"_s), {QString(), descriptor, options}, failed);
}

} // namespace netrove
