#pragma once

#include "platform/Files.h"
#include "platform/NetworkEnumeration.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>

namespace netrove {

/// A network in memory, with its faults: what the engine's tests walk.
class MemoryNetwork : public NetworkEnumeration, public FileAccess {
public:
    /// Adds a node below the node with that remote name (empty: the root).
    void AddNode(const QString& parent, qint32 displayType, const QString& remoteName);
    /// Adds a provider and what is below it, each in the one before, where it isn't there yet:
    /// {"Net", "WG", "\\\\S", "\\\\S\\D"}.
    void AddBranch(std::initializer_list<const char*> names);
    void AddPrinter(const QString& server, const QString& remoteName, qint32 displayType = 3);

    /// Adds a file and the folders that lead to it; a path with a closing "\" adds a folder.
    /// Folders begin with "." and "..".
    void AddFile(const QString& path, qint64 length = 0);

    /// Raised before these calls, as "open X", "list X", "enter X", "workgroup X",
    /// "attributes X"; may throw.
    std::function<void(const QString& call)> OnCall;

    QSet<QString> Unlistable; ///< remote names whose enumeration can't be opened
    bool BreakOff = false;    ///< enumerations end with an error after the first piece
    QString ThisComputer;     ///< the remote name of the one that has this computer's address
    int OpenHandles = 0;
    quint32 LargestBuffer = 0;

    quint32 OpenEnum(qint32 scope, qint32 type, qint32 usage, const NetRecord& start,
                     NetEnum::Handle& handle) override;
    quint32 EnumResource(NetEnum::Handle handle, qint32& count, std::vector<NetRecord>& buffer,
                         quint32& bufferSize) override;
    void CloseEnum(NetEnum::Handle handle) override;
    QString Workgroup(const QString& computer) override;
    bool IsThisComputer(const QString& computer) override { return computer == ThisComputer; }

    std::unique_ptr<FileFind> FindFirst(const QString& searchPath, FindData& first) override;
    bool CanEnter(const QString& path) override;
    FileInfo Info(const QString& path) override;
    QByteArray Read(const QString& path, qint64 offset, qint64 length) override;
    std::optional<QString> LocalPath(const QString& path) override;

private:
    struct List {
        std::vector<NetRecord> records;
        std::size_t next = 0;
    };

    void Call(const QString& call) const;
    std::vector<FindData>& Folder(const QString& path);

    QHash<QString, std::vector<NetRecord>> disks_;
    QHash<QString, std::vector<NetRecord>> printers_;
    std::map<QString, std::vector<FindData>> folders_;
    QHash<QString, qint64> lengths_;
    QHash<NetEnum::Handle, List> lists_;
    NetEnum::Handle lastHandle_ = 0;
};

} // namespace netrove
