#pragma once

#include <QString>

#include <vector>

namespace netrove {

/// What the system reports of one resource of the network, in the order of its record.
struct NetRecord {
    qint32 dwScope = 0;
    qint32 dwType = 0;
    qint32 dwDisplayType = 0;
    qint32 dwUsage = 0;
    QString lpLocalName = {};
    QString lpRemoteName = {};
    QString lpComment = {};
    QString lpProvider = {};
};

/// Numbers that an enumeration is opened with and reports ([MS-DOCS] NETRESOURCE).
namespace NetEnum {
inline constexpr qint32 ScopeGlobalNet = 2;
inline constexpr qint32 TypeDisk = 1;
inline constexpr qint32 TypePrint = 2;
inline constexpr qint32 UsageAll = 0;
inline constexpr qint32 UsageConnectable = 1;
inline constexpr qint32 UsageContainer = 2;

inline constexpr qint32 DisplayGeneric = 0;
inline constexpr qint32 DisplayDomain = 1;
inline constexpr qint32 DisplayServer = 2;
inline constexpr qint32 DisplayShare = 3;
inline constexpr qint32 DisplayNetwork = 6;
inline constexpr qint32 DisplayDirectory = 9;

inline constexpr quint32 NoError = 0;
inline constexpr quint32 MoreData = 234;
inline constexpr quint32 NoMoreItems = 259;
/// The network path was not found: the computer can't be reached, or nobody knows the name.
inline constexpr quint32 BadNetPath = 53;
inline constexpr quint32 AccessDenied = 5;
inline constexpr quint32 InvalidHandle = 6;

using Handle = quint32;
/// Asks for as many records as fit.
inline constexpr qint32 CountAll = -1;
/// The usual name of the provider that is the local area network.
inline constexpr QLatin1String LocalAreaNetwork("Microsoft Windows Network");
/// Bytes of a record without its texts.
inline constexpr quint32 RecordBytes = 32;
} // namespace NetEnum

/// The network as the system would report it: open a node's list, fetch it piece by piece, close.
/// Used from one thread; calls block like those of FileAccess.
class NetworkEnumeration {
public:
    NetworkEnumeration() = default;
    NetworkEnumeration(const NetworkEnumeration&) = delete;
    NetworkEnumeration& operator=(const NetworkEnumeration&) = delete;
    virtual ~NetworkEnumeration() = default;

    /// Opens the list of what lies below `start`; a record with an empty name is the root, whose
    /// list is the providers. `type` asks for disks (with everything that contains them) or
    /// printers. Returns NetEnum::NoError and sets the handle, or returns an error code.
    [[nodiscard]] virtual quint32 OpenEnum(qint32 scope, qint32 type, qint32 usage,
                                           const NetRecord& start, NetEnum::Handle& handle) = 0;

    /// Fetches the next records. `count` says how many are wanted (NetEnum::CountAll: as many as
    /// fit in `bufferSize` bytes, where a record takes NetEnum::RecordBytes and its texts) and
    /// afterwards how many came. Returns NetEnum::MoreData, with the size needed in `bufferSize`,
    /// if not even one fits; at the end, NetEnum::NoError with a count of 0, or any other code.
    [[nodiscard]] virtual quint32 EnumResource(NetEnum::Handle handle, qint32& count,
                                               std::vector<NetRecord>& buffer,
                                               quint32& bufferSize) = 0;

    virtual void CloseEnum(NetEnum::Handle handle) = 0;

    /// The workgroup of a computer, as the computer itself or another source tells it; empty if
    /// none answers.
    [[nodiscard]] virtual QString Workgroup(const QString& computer) = 0;

    /// Whether a computer is the one that the program runs on, by its known address: in the network
    /// it may have another name than its own. Asks nobody.
    [[nodiscard]] virtual bool IsThisComputer(const QString& /*computer*/) { return false; }
};

} // namespace netrove
