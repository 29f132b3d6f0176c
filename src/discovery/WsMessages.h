#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace netrove {

/// Messages of WS-Discovery (2005/04) and of the exchange of metadata that follows it (Devices
/// Profile for Web Services, 2006/02), over SOAP 1.2.
namespace WsMessages {

constexpr quint16 Port = 3702;
constexpr QLatin1String GroupIPv4("239.255.255.250");
constexpr QLatin1String GroupIPv6("ff02::c");

/// "urn:uuid:" and a random UUID: the ID of a message or its sender.
[[nodiscard]] QString NewId();

/// Asks all hosts for devices.
[[nodiscard]] QByteArray Probe(const QString& messageId);
/// Asks all hosts where the device with that endpoint is.
[[nodiscard]] QByteArray Resolve(const QString& messageId, const QString& endpoint);
/// Asks the device itself what it is, over HTTP.
[[nodiscard]] QByteArray Get(const QString& messageId, const QString& endpoint);

/// A device that answered to Probe() or Resolve().
struct Device {
    QString endpoint;
    QStringList types;     ///< without their prefixes; empty if it didn't tell them
    QStringList addresses; ///< URLs to ask it at; empty if Resolve() must find them

    /// False where it says that it is something else.
    [[nodiscard]] bool MayBeComputer() const;
};

struct Computer {
    QString name;
    std::optional<QString> workgroup; ///< or domain; nothing if it is in neither
};

struct Message {
    QString id;
    QString relatesTo; ///< the message that it answers
    std::vector<Device> devices;
    std::optional<Computer> computer; ///< in an answer to Get()
};

/// Nothing where the bytes aren't an answer, are damaged, have a document type (which SOAP forbids:
/// its entities could grow without limit) or are nested deeper than any answer is.
[[nodiscard]] std::optional<Message> Parse(QByteArrayView bytes);

/// "NAME/Workgroup:GROUP", "NAME/Domain:DOMAIN" or "NAME/NotJoined", also with a backslash.
[[nodiscard]] std::optional<Computer> ParseComputer(const QString& text);

/// Where to ask for the metadata on the computer that answered.
struct Target {
    quint16 port = 0;
    QByteArray path;
};

/// The port and path of the device's URL at the address that it answered from, else of its first
/// URL. Whatever host a URL names, only the host that answered is asked. Nothing where there is no
/// URL for HTTP.
[[nodiscard]] std::optional<Target> ChooseTarget(const QStringList& addresses,
                                                 const QString& answeredFrom);

} // namespace WsMessages
} // namespace netrove
