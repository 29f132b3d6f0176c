#include "platform/network/SmbProvider.h"

#include "platform/network/SmbErrors.h"

#include <algorithm>
#include <cerrno>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// Disks and printers of a server are asked for one right after the other.
constexpr auto SharesLifetime = 5s;

/// Where computers stand whose workgroup nobody has told.
constexpr QLatin1String Unknown("WORKGROUP");

/// Entries of one folder that a server may have, before it counts as one that never ends.
constexpr std::size_t MaxFolderEntries = 2'000'000;
constexpr std::size_t MaxShares = 10'000;

/// Bytes of one request of a read: each has its own limit of time.
constexpr quint32 ReadBytes = 4 * 1024 * 1024;

/// How often one path may go through junctions of the same name. A junction that leads back above
/// itself is met again below itself, without end.
constexpr qsizetype MaxPasses = 2;
constexpr qsizetype MaxJunctions = 10'000;

bool SameName(const QString& left, const QString& right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/// A running listing: it holds on to what was fetched as a whole.
class SmbFind : public FileFind {
public:
    explicit SmbFind(RecentListings::Listing listing) : listing_(std::move(listing)) {}

    bool FindNext(FindData& data) override {
        if (next_ == listing_->size())
            return false;
        const SmbEntry& entry = (*listing_)[next_++];
        data = {.attributes = entry.attributes, .fileName = entry.name};
        return true;
    }

private:
    RecentListings::Listing listing_;
    std::size_t next_ = 0;
};

QString FolderKey(const UncPath& path, qsizetype elements) {
    QString key = path.Server().toLower() + QLatin1Char('\\') + path.Share().toLower();
    for (qsizetype at = 0; at < elements; ++at)
        key += QLatin1Char('\\') + path.Elements()[at];
    return key;
}

QString FolderKey(const UncPath& path) {
    return FolderKey(path, path.Elements().size());
}

template <typename Item>
void MoveItems(std::vector<Item>& from, std::vector<Item>& to) {
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

} // namespace

SmbProvider::SmbProvider(QString name, const std::vector<SmbHost>& hosts, QString helper,
                         const SmbLimits& limits, std::shared_ptr<Logons> logons)
    : NetworkProvider(std::move(name)), pool_(std::move(helper), limits, std::move(logons)) {
    for (const SmbHost& host : hosts) {
        if (!Host(host.name))
            hosts_.push_back(host);
    }
}

std::optional<std::vector<NetRecord>> SmbProvider::List(const NetRecord& node, qint32 type) {
    switch (node.dwDisplayType) {
    case NetEnum::DisplayNetwork:
        return type == NetEnum::TypeDisk ? Workgroups() : std::vector<NetRecord>();
    case NetEnum::DisplayDomain:
        return type == NetEnum::TypeDisk ? Servers(node.lpRemoteName) : std::vector<NetRecord>();
    case NetEnum::DisplayServer:
        break;
    default:
        return std::nullopt;
    }
    const auto path = UncPath::Parse(node.lpRemoteName);
    return path ? SharesOf(path->Server(), type) : std::nullopt;
}

std::vector<NetRecord> SmbProvider::Workgroups() const {
    std::vector<NetRecord> records;
    for (const SmbHost& host : hosts_) {
        const QString workgroup = WorkgroupOf(host);
        const auto isKnown = [&](const NetRecord& record) {
            return SameName(record.lpRemoteName, workgroup);
        };
        if (std::none_of(records.begin(), records.end(), isKnown))
            records.push_back(Record(NetEnum::DisplayDomain, workgroup, QString()));
    }
    return records;
}

std::vector<NetRecord> SmbProvider::Servers(const QString& workgroup) const {
    std::vector<NetRecord> records;
    for (const SmbHost& host : hosts_) {
        if (SameName(WorkgroupOf(host), workgroup))
            records.push_back(
                Record(NetEnum::DisplayServer, QLatin1String("\\\\") + host.name, QString()));
    }
    return records;
}

std::optional<std::vector<NetRecord>> SmbProvider::SharesOf(const QString& server, qint32 type) {
    const auto now = std::chrono::steady_clock::now();
    if (!SameName(lastShares_.server, server) || now > lastShares_.until) {
        auto shares = FetchShares(server);
        if (!shares)
            return std::nullopt;
        lastShares_ = {.server = server,
                       .until = std::chrono::steady_clock::now() + SharesLifetime,
                       .shares = std::move(*shares)};
    }
    const auto wanted = type == NetEnum::TypePrint ? SmbShare::Kind::Printer : SmbShare::Kind::Disk;
    std::vector<NetRecord> records;
    for (const SmbShare& share : lastShares_.shares) {
        if (share.kind == wanted)
            records.push_back(
                Record(NetEnum::DisplayShare,
                       QLatin1String("\\\\") + server + QLatin1Char('\\') + share.name,
                       share.comment, type));
    }
    return records;
}

/// The shares that are shown: those whose name ends in "$" are there for who types their path.
std::optional<SmbShares> SmbProvider::FetchShares(const QString& server) {
    SmbShares shares;
    const auto take = [&](SmbAnswer& part) {
        auto* some = std::get_if<SmbShares>(&part);
        if (!some || shares.size() + some->size() > MaxShares)
            return false;
        std::erase_if(*some,
                      [](const SmbShare& share) { return share.name.endsWith(QLatin1Char('$')); });
        MoveItems(*some, shares);
        return true;
    };
    if (pool_.Run(Request(SmbRequest::Kind::ListShares, server), take) != 0)
        return std::nullopt;
    return shares;
}

QString SmbProvider::WorkgroupOf(const SmbHost& host) const {
    return host.workgroup ? *host.workgroup : told_.value(host.name.toCaseFolded(), Unknown);
}

QString SmbProvider::Workgroup(const QString& server) {
    const SmbHost* host = Host(server);
    if (host && host->workgroup)
        return *host->workgroup;
    const QString workgroup = AskWorkgroup(server);
    if (host && !workgroup.isEmpty())
        told_.insert(host->name.toCaseFolded(), workgroup);
    return workgroup;
}

QString SmbProvider::AskWorkgroup(const QString& server) {
    QString workgroup;
    const auto take = [&](SmbAnswer& part) {
        const auto* told = std::get_if<SmbWorkgroup>(&part);
        if (!told || !UncPath::IsName(told->name))
            return false;
        workgroup = told->name;
        return true;
    };
    return pool_.Run(Request(SmbRequest::Kind::Workgroup, server), take) == 0 ? workgroup
                                                                              : QString();
}

std::unique_ptr<FileFind> SmbProvider::FindFirst(const UncPath& path, FindData& first) {
    auto listing = Entries(path);
    if (!listing)
        return nullptr;
    auto find = std::make_unique<SmbFind>(std::move(listing));
    return find->FindNext(first) ? std::move(find) : nullptr;
}

/// A folder that can be listed can be entered. Who asks goes in next, and finds the listing.
bool SmbProvider::CanEnter(const UncPath& path) {
    return Entries(path) != nullptr;
}

RecentListings::Listing SmbProvider::Entries(const UncPath& path) {
    if (path.Share().isEmpty() || IsInLoop(path))
        return nullptr;
    const QString folder = FolderKey(path);
    if (auto known = recent_.Find(folder))
        return known;
    auto listing = FetchEntries(path);
    if (listing) {
        NoteJunctions(path, *listing);
        recent_.Keep(folder, listing);
    }
    return listing;
}

RecentListings::Listing SmbProvider::FetchEntries(const UncPath& path) {
    SmbEntries entries;
    const auto take = [&](SmbAnswer& part) {
        auto* some = std::get_if<SmbEntries>(&part);
        if (!some || entries.size() + some->size() > MaxFolderEntries)
            return false;
        MoveItems(*some, entries);
        return true;
    };
    if (pool_.Run(Request(SmbRequest::Kind::ListFolder, path), take) != 0)
        return nullptr;
    return std::make_shared<const SmbEntries>(std::move(entries));
}

void SmbProvider::NoteJunctions(const UncPath& path, const SmbEntries& entries) {
    constexpr quint32 junction = FileAttribute::Directory | FileAttribute::ReparsePoint;
    for (const SmbEntry& entry : entries) {
        if ((entry.attributes & junction) == junction && junctions_.size() < MaxJunctions)
            junctions_.insert(FolderKey(path) + QLatin1Char('\\') + entry.name);
    }
}

bool SmbProvider::IsInLoop(const UncPath& path) const {
    if (junctions_.isEmpty())
        return false;
    QHash<QString, qsizetype> passes;
    for (qsizetype depth = 1; depth <= path.Elements().size(); ++depth) {
        if (junctions_.contains(FolderKey(path, depth)) &&
            ++passes[path.Elements()[depth - 1]] > MaxPasses)
            return true;
    }
    return false;
}

FileInfo SmbProvider::Info(const UncPath& path) {
    std::optional<SmbEntry> entry;
    if (!path.Elements().isEmpty())
        entry =
            recent_.FindEntry(FolderKey(path, path.Elements().size() - 1), path.Elements().last());
    if (!entry)
        entry = FetchInfo(path);
    return {.attributes = entry->attributes,
            .length = entry->length,
            .modified = QDateTime::fromMSecsSinceEpoch(entry->modified)};
}

SmbEntry SmbProvider::FetchInfo(const UncPath& path) {
    if (path.Share().isEmpty())
        throw RunTimeError(ErrorNumber::PathNotFound);
    SmbEntries entries;
    const auto take = [&](SmbAnswer& part) {
        auto* some = std::get_if<SmbEntries>(&part);
        if (!some || !entries.empty() || some->size() != 1)
            return false;
        entries = std::move(*some);
        return true;
    };
    const int status = pool_.Run(Request(SmbRequest::Kind::Stat, path), take);
    if (status != 0 || entries.empty())
        throw RunTimeError(ErrorOfSmbRequest(pool_, Request(SmbRequest::Kind::Stat, path), status,
                                             SmbAction::Look));
    return entries.front();
}

QByteArray SmbProvider::Read(const UncPath& path, qint64 offset, qint64 length) {
    if (offset < 0 || length < 0)
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    if (path.Share().isEmpty())
        throw RunTimeError(ErrorNumber::PathNotFound);
    QByteArray bytes;
    SmbRequest request = Request(SmbRequest::Kind::Read, path);
    while (bytes.size() < length) {
        const qsizetype before = bytes.size();
        request.offset = offset + before;
        request.length = static_cast<quint32>(std::min<qint64>(ReadBytes, length - before));
        const auto take = [&](SmbAnswer& part) {
            const auto* data = std::get_if<SmbData>(&part);
            if (!data || bytes.size() - before + data->bytes.size() > qsizetype(request.length))
                return false;
            bytes += data->bytes;
            return true;
        };
        if (const int status = pool_.Run(request, take); status != 0)
            throw RunTimeError(ErrorOfSmbRequest(pool_, request, status, SmbAction::Read));
        if (bytes.size() - before < qsizetype(request.length))
            break;
    }
    return bytes;
}

std::optional<QString> SmbProvider::LocalPath(const UncPath& /*path*/) {
    return std::nullopt;
}

std::optional<SmbRequest> SmbProvider::ReadRequest(const UncPath& path) const {
    return Request(SmbRequest::Kind::Read, path);
}

const SmbHost* SmbProvider::Host(const QString& server) const {
    const auto found = std::find_if(hosts_.begin(), hosts_.end(), [&](const SmbHost& host) {
        return SameName(host.name, server);
    });
    return found == hosts_.end() ? nullptr : &*found;
}

SmbRequest SmbProvider::Request(SmbRequest::Kind kind, const QString& server) const {
    SmbRequest request = {.kind = kind, .host = server, .computer = server};
    if (const SmbHost* host = Host(server)) {
        request.port = host->port;
        if (!host->address.isEmpty())
            request.host = host->address;
    }
    return request;
}

SmbRequest SmbProvider::Request(SmbRequest::Kind kind, const UncPath& path) const {
    SmbRequest request = Request(kind, path.Server());
    request.share = path.Share();
    request.path = path.RelativePath();
    return request;
}

} // namespace netrove
