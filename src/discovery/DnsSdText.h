#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace netrove {

/// What the texts of a DNS-SD service (RFC 6763) tell about the computer that it runs on.
namespace DnsSdText {

/// The computer's name: that of the service if it looks like a computer's (as Samba announces
/// itself), else the first label of the host's, since a service may be called anything
/// ("Anna's files"). Empty where neither can be a name.
[[nodiscard]] QString ComputerName(const QString& service, const QString& host);

/// The value of "model" in a TXT record; empty where there is none that can be shown.
[[nodiscard]] QString Model(const QList<QByteArray>& texts);

} // namespace DnsSdText
} // namespace netrove
