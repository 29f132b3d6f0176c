#include "fakes/MemoryNetwork.h"

#include "fakes/ListedFind.h"
#include "runtime/RunTimeError.h"

#include <algorithm>

namespace netrove {
namespace {

quint32 RecordSize(const NetRecord& record) {
    return NetEnum::RecordBytes +
           static_cast<quint32>(record.lpRemoteName.size() + record.lpComment.size() +
                                record.lpProvider.size() + record.lpLocalName.size() + 4);
}

NetRecord Record(qint32 type, qint32 displayType, qint32 usage, const QString& remoteName,
                 const QString& comment) {
    return {.dwScope = 2,
            .dwType = type,
            .dwDisplayType = displayType,
            .dwUsage = usage,
            .lpLocalName = {},
            .lpRemoteName = remoteName,
            .lpComment = comment,
            .lpProvider = QStringLiteral("Memory")};
}

QString WithSeparator(const QString& path) {
    return path.endsWith(QLatin1Char('\\')) ? path : path + QLatin1Char('\\');
}

} // namespace

void MemoryNetwork::AddNode(const QString& parent, qint32 displayType, const QString& remoteName) {
    disks_[parent].push_back(Record(1, displayType, 0, remoteName, QStringLiteral("a comment")));
}

void MemoryNetwork::AddBranch(std::initializer_list<const char*> names) {
    QString parent;
    for (const char* text : names) {
        const QString name = QString::fromUtf8(text);
        const auto slashes = name.count(QLatin1Char('\\'));
        const qint32 type = parent.isEmpty() ? NetEnum::DisplayNetwork
                            : slashes == 0   ? NetEnum::DisplayDomain
                            : slashes == 2   ? NetEnum::DisplayServer
                                             : NetEnum::DisplayShare;
        const auto& known = disks_.value(parent);
        if (std::none_of(known.begin(), known.end(),
                         [&](const NetRecord& record) { return record.lpRemoteName == name; }))
            AddNode(parent, type, name);
        parent = name;
    }
}

void MemoryNetwork::AddPrinter(const QString& server, const QString& remoteName,
                               qint32 displayType) {
    printers_[server].push_back(Record(2, displayType, 1, remoteName, {}));
}

std::vector<FindData>& MemoryNetwork::Folder(const QString& path) {
    const auto known = folders_.find(path);
    if (known != folders_.end())
        return known->second;
    const QString above = path.left(path.lastIndexOf(QLatin1Char('\\'), -2) + 1);
    const QString name = path.mid(above.size()).chopped(1);
    // \\SERVER\SHARE\ is the top: a server is no folder.
    if (above.count(QLatin1Char('\\')) > 3)
        Folder(above).push_back({.attributes = FileAttribute::Directory, .fileName = name});
    auto& entries = folders_[path];
    for (const char* dots : {".", ".."})
        entries.push_back(
            {.attributes = FileAttribute::Directory, .fileName = QString::fromLatin1(dots)});
    return entries;
}

void MemoryNetwork::AddFile(const QString& path, qint64 length) {
    const qsizetype cut = path.lastIndexOf(QLatin1Char('\\')) + 1;
    auto& entries = Folder(path.left(cut));
    if (cut == path.size())
        return;
    entries.push_back({.attributes = FileAttribute::Archive, .fileName = path.mid(cut)});
    lengths_.insert(path, length);
}

void MemoryNetwork::Call(const QString& call) const {
    if (OnCall)
        OnCall(call);
}

quint32 MemoryNetwork::OpenEnum(qint32 /*scope*/, qint32 type, qint32 /*usage*/,
                                const NetRecord& start, NetEnum::Handle& handle) {
    const bool printers = type == NetEnum::TypePrint;
    Call((printers ? QLatin1String("print ") : QLatin1String("open ")) + start.lpRemoteName);
    const auto& lists = printers ? printers_ : disks_;
    if (Unlistable.contains(start.lpRemoteName) || !lists.contains(start.lpRemoteName))
        return NetEnum::BadNetPath;
    handle = ++lastHandle_;
    lists_.insert(handle, {.records = lists.value(start.lpRemoteName)});
    ++OpenHandles;
    return NetEnum::NoError;
}

quint32 MemoryNetwork::EnumResource(NetEnum::Handle handle, qint32& count,
                                    std::vector<NetRecord>& buffer, quint32& bufferSize) {
    LargestBuffer = std::max(LargestBuffer, bufferSize);
    List& list = lists_[handle];
    if (BreakOff && list.next > 0)
        return NetEnum::BadNetPath;
    // Like a system that wants to give all of a list at once.
    quint32 needed = 0;
    for (std::size_t at = list.next; at < list.records.size(); ++at)
        needed += RecordSize(list.records[at]);
    if (needed > bufferSize) {
        bufferSize = needed;
        return NetEnum::MoreData;
    }
    buffer.assign(list.records.begin() + static_cast<std::ptrdiff_t>(list.next),
                  list.records.end());
    list.next = list.records.size();
    count = static_cast<qint32>(buffer.size());
    return NetEnum::NoError;
}

void MemoryNetwork::CloseEnum(NetEnum::Handle handle) {
    lists_.remove(handle);
    --OpenHandles;
}

QString MemoryNetwork::Workgroup(const QString& computer) {
    Call(QLatin1String("workgroup ") + computer);
    for (auto list = disks_.cbegin(); list != disks_.cend(); ++list) {
        for (const NetRecord& record : *list) {
            if (record.lpRemoteName == QLatin1String("\\\\") + computer)
                return list.key();
        }
    }
    return QString();
}

std::unique_ptr<FileFind> MemoryNetwork::FindFirst(const QString& searchPath, FindData& first) {
    const QString path = searchPath.left(searchPath.lastIndexOf(QLatin1Char('\\')) + 1);
    Call(QLatin1String("list ") + path);
    const auto folder = folders_.find(path);
    if (folder == folders_.end())
        return nullptr;
    auto find = std::make_unique<ListedFind>(folder->second);
    if (!find->FindNext(first))
        return nullptr;
    return find;
}

bool MemoryNetwork::CanEnter(const QString& path) {
    Call(QLatin1String("enter ") + path);
    return folders_.contains(WithSeparator(path));
}

FileInfo MemoryNetwork::Info(const QString& path) {
    Call(QLatin1String("attributes ") + path);
    if (!lengths_.contains(path))
        throw RunTimeError(ErrorNumber::FileNotFound);
    return {.attributes = FileAttribute::Archive,
            .length = lengths_.value(path),
            .modified = QDateTime(QDate(2020, 2, 3), QTime(4, 5, 6))};
}

QByteArray MemoryNetwork::Read(const QString& /*path*/, qint64 /*offset*/, qint64 /*length*/) {
    return QByteArray();
}

std::optional<QString> MemoryNetwork::LocalPath(const QString& /*path*/) {
    return std::nullopt;
}

} // namespace netrove
