#pragma once

#include "runtime/Secret.h"

#include <QByteArray>
#include <QString>

#include <cerrno>
#include <optional>
#include <variant>
#include <vector>

namespace netrove {

/// The descriptor at which a helper finds its end of the socket. Standard output isn't used: the
/// library prints there at times.
inline constexpr int SmbHelperDescriptor = 3;
/// The same for the memory that both share (SmbMemory).
inline constexpr int SmbMemoryDescriptor = 4;

/// The first message of both sides. Sides with different versions end the connection.
struct SmbHello {
    static constexpr quint32 Version = 5;
    quint32 version = Version;
};

/// The user as whom a server is asked to let us in. The server checks the user in `domain`, which
/// is a domain, the server's own name, or empty to let the server choose.
struct SmbLogon {
    QString domain = {};
    QString user = {};
    Secret password = {};

    friend bool operator==(const SmbLogon&, const SmbLogon&) = default;
};

/// What the program asks of a helper. Each request is answered by any number of parts and one
/// SmbEnd; the next request is sent only after that.
struct SmbRequest {
    enum class Kind : quint8 {
        Resolve,    ///< the addresses of `host`: SmbAddresses
        ListShares, ///< SmbShares
        ListFolder, ///< SmbFolder if the server tells it, then SmbEntries
        Stat,       ///< SmbEntries with one entry, whose name is empty
        Read,       ///< SmbData
        Workgroup,  ///< SmbWorkgroup
        Inspect,    ///< as Stat, of a file that is opened for the reads that follow
        Fetch,      ///< as Read, into the shared memory from its beginning on: SmbFetched
    };

    Kind kind = Kind::ListShares;
    QString host = {};
    quint16 port = 445;
    QString share = {};
    QString path = {};  ///< below the share, joined by "/"; empty for its top
    qint64 offset = 0;  ///< of a read, in bytes
    quint32 length = 0; ///< of a read, in bytes
    /// The computer's name, where `host` may be its address: Kerberos goes by the name.
    QString computer = {};
    std::optional<SmbLogon> logon = {}; ///< nothing: as a guest
};

struct SmbShare {
    enum class Kind : quint8 { Disk, Printer };
    Kind kind = Kind::Disk;
    QString name = {};
    QString comment = {};
};

struct SmbEntry {
    QString name = {};
    quint32 attributes = 0; ///< FileAttribute
    qint64 length = 0;      ///< bytes
    qint64 modified = 0;    ///< milliseconds since 1970 UTC
};

/// An address of a computer as numbers: "192.0.2.1", "2001:db8::1".
struct SmbAddress {
    QString text = {};
};

using SmbAddresses = std::vector<SmbAddress>;
using SmbShares = std::vector<SmbShare>;
using SmbEntries = std::vector<SmbEntry>;

/// What a server tells in a folder's listing about the folder itself.
struct SmbFolder {
    quint64 number = 0; ///< its file ID ([MS-FSCC] 2.4.17); 0 where there is none
    qint64 changed = 0; ///< nanoseconds since 1970 UTC: when an entry was last added or removed

    friend bool operator==(const SmbFolder&, const SmbFolder&) = default;
};

struct SmbData {
    /// Bytes of one part at most.
    static constexpr qsizetype MaxBytes = 1024 * 1024;
    QByteArray bytes = {};
};

/// Bytes of a file, in the shared memory until the next request.
struct SmbFetched {
    quint32 begin = 0;
    quint32 length = 0;
};

/// The workgroup or domain of a computer, as it tells it.
struct SmbWorkgroup {
    QString name = {};
};

/// The end of an answer: 0, or the errno that the request failed with. Parts that came before a
/// failure are good.
struct SmbEnd {
    /// The server didn't let the request's logon, or guests, in at all. (EACCES means that it did,
    /// but doesn't allow what was asked.)
    static constexpr qint32 LogonRefused = EPERM;
    qint32 status = 0;
};

using SmbQuestion = std::variant<SmbHello, SmbRequest>;
using SmbAnswer = std::variant<SmbHello, SmbAddresses, SmbShares, SmbEntries, SmbData, SmbWorkgroup,
                               SmbEnd, SmbFetched, SmbFolder>;

/// The bytes of a question with a logon have the password in them: wipe them after use.
[[nodiscard]] QByteArray EncodeQuestion(const SmbQuestion& question);
[[nodiscard]] QByteArray EncodeAnswer(const SmbAnswer& answer);

/// Nothing where the bytes aren't such a message, to the last byte.
[[nodiscard]] std::optional<SmbQuestion> DecodeQuestion(const QByteArray& payload);
[[nodiscard]] std::optional<SmbAnswer> DecodeAnswer(const QByteArray& payload);

} // namespace netrove
