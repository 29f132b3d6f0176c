#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace netrove {

/// Packets of the NetBIOS name service (RFC 1002, 4.2): a question for any name, to be broadcast,
/// and one for all names of a computer.
namespace NetBiosPackets {

constexpr quint16 Port = 137;

[[nodiscard]] QByteArray NameQuery(quint16 id);
[[nodiscard]] QByteArray StatusRequest(quint16 id);

struct Reply {
    quint16 id = 0;
    bool isStatus = false; ///< an answer to StatusRequest(), else to NameQuery()
    /// From here on of a status answer only. Empty where the computer shares no files.
    QString computer;
    QString workgroup; ///< empty where it wasn't told
    bool isMasterBrowser = false;
};

/// Nothing where the bytes aren't an answer to one of the two questions, or are a negative one.
[[nodiscard]] std::optional<Reply> Parse(QByteArrayView bytes);

} // namespace NetBiosPackets
} // namespace netrove
