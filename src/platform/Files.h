#pragma once

#include "runtime/FileAttribute.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>

namespace netrove {

/// One entry of a folder listing. Only the name and the directory bit are always filled.
struct FindData {
    quint32 attributes = 0;
    QString fileName = {};

    [[nodiscard]] bool IsDirectory() const { return (attributes & FileAttribute::Directory) != 0; }
};

/// What is known about one file.
struct FileInfo {
    quint32 attributes = 0;
    qint64 length = 0;       ///< bytes
    QDateTime modified = {}; ///< local time
};

/// Where a computer speaks SMB.
struct ServerAddress {
    QString host; ///< an IP address or a host name
    quint16 port;
};

/// A folder listing that is being read. The destructor closes it.
class FileFind {
public:
    FileFind() = default;
    FileFind(const FileFind&) = delete;
    FileFind& operator=(const FileFind&) = delete;
    virtual ~FileFind() = default;

    /// Puts the next entry into `data`; false if none is left (or the listing broke off).
    [[nodiscard]] virtual bool FindNext(FindData& data) = 0;
};

/// Files and folders by their paths: those of the network in the Universal Naming Convention
/// (\\SERVER\SHARE\FOLDER\FILE) and local ones in the system's own form. Entries called "." and
/// ".." are listed if the file system lists them; a name that holds a separator or a zero character
/// never is.
///
/// Used from one thread. Calls block until the other side has answered or failed; meanwhile they
/// call WhileWaiting(), and fail at once if that returns false.
class FileAccess {
public:
    FileAccess() = default;
    FileAccess(const FileAccess&) = delete;
    FileAccess& operator=(const FileAccess&) = delete;
    virtual ~FileAccess() = default;

    /// Begins to list the entries that `searchPath` names: a folder path with its closing
    /// separator, then "*.*" for all entries. The first entry goes into `first`. Null where
    /// the folder can't be listed, whatever the reason, or has no entry at all.
    [[nodiscard]] virtual std::unique_ptr<FileFind> FindFirst(const QString& searchPath,
                                                              FindData& first) = 0;

    /// Whether the program may enter `path` as a folder.
    [[nodiscard]] virtual bool CanEnter(const QString& path) = 0;

    /// All that is known about a file; a folder has the length 0. Raises ErrorNumber::FileNotFound,
    /// PathNotFound or PermissionDenied. Nothing is cached: a caller that needs it twice should
    /// keep it.
    [[nodiscard]] virtual FileInfo Info(const QString& path) = 0;

    /// At most `length` bytes from `offset` on; fewer at the end of the file. Raises as above, and
    /// ErrorNumber::DeviceIOError where reading fails in the middle.
    [[nodiscard]] virtual QByteArray Read(const QString& path, qint64 offset, qint64 length) = 0;

    /// Where a network path lies in the local file system, if it does.
    [[nodiscard]] virtual std::optional<QString> LocalPath(const QString& path) = 0;
    /// Where other programs find the computer of a network path; nothing if they find it by its
    /// name. Asks nobody.
    [[nodiscard]] virtual std::optional<ServerAddress> Address(const QString& /*path*/) {
        return std::nullopt;
    }
};

} // namespace netrove
