#include "desktop/DesktopAddress.h"

#include "runtime/Names.h"
#include "runtime/SourceText.h"

#include <QStringList>

namespace netrove {

namespace {

/// What "smb:" means without a port.
constexpr quint16 UsualPort = 445;

} // namespace

std::optional<QUrl> SmbAddress(const QString& networkPath,
                               const std::optional<ServerAddress>& server) {
    if (!networkPath.startsWith("\\\\"_L1))
        return std::nullopt;
    QStringList names = networkPath.mid(2).split(u'\\');
    if (names.size() > 1 && names.last().isEmpty())
        names.removeLast();
    for (const QString& name : std::as_const(names)) {
        if (!IsPathElement(name))
            return std::nullopt;
    }

    const QString name = names.takeFirst();
    QUrl computer;
    computer.setScheme(u"smb"_s);
    computer.setHost(server ? server->host : name, QUrl::DecodedMode);
    if (!computer.isValid() || computer.host().isEmpty())
        return std::nullopt;
    if (server && server->port != UsualPort)
        computer.setPort(server->port);
    QByteArray address = computer.toEncoded();
    for (const QString& below : std::as_const(names))
        address += '/' + QUrl::toPercentEncoding(below);
    return QUrl::fromEncoded(address, QUrl::StrictMode);
}

QUrl FileAddress(const QString& localPath) {
    return QUrl::fromEncoded("file://" + QUrl::toPercentEncoding(localPath, "/"), QUrl::StrictMode);
}

std::optional<QUrl> WebAddress(const QString& text) {
    QUrl address(text, QUrl::StrictMode);
    if (!address.isValid())
        return std::nullopt;
    const QString scheme = address.scheme();
    const bool web = scheme == "http"_L1 || scheme == "https"_L1;
    if (web ? address.host().isEmpty() : scheme != "mailto"_L1)
        return std::nullopt;
    return address;
}

} // namespace netrove
