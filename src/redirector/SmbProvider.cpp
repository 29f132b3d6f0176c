#include "redirector/SmbProvider.h"

#include "discovery/OwnAddress.h"
#include "redirector/FolderKeys.h"
#include "redirector/SmbErrors.h"
#include "redirector/SmbPlace.h"
#include "runtime/Names.h"
#include "runtime/SourceText.h"

#include <algorithm>
#include <cerrno>

namespace netrove {
namespace {

/// Bytes that one request reads at most: each request has a time limit of its own.
constexpr quint32 ReadBytes = 4 * 1024 * 1024;

/// A listing that is being gone through; it owns the entries, which were fetched as a whole.
class SmbFind : public FileFind {
public:
    explicit SmbFind(SmbListing listing) : listing_(std::move(listing)) {}

    bool FindNext(FindData& data) override {
        if (next_ == listing_->size())
            return false;
        const SmbEntry& entry = (*listing_)[next_++];
        data = {.attributes = entry.attributes, .fileName = entry.name};
        return true;
    }

private:
    SmbListing listing_;
    std::size_t next_ = 0;
};

} // namespace

SmbProvider::SmbProvider(QString name, SmbComputers computers, QString helper,
                         const SmbLimits& limits, std::shared_ptr<Logons> logons)
    : NetworkProvider(std::move(name))
    , computers_(std::move(computers))
    , settings_(std::make_shared<const SmbSettings>(
          SmbSettings{.helper = std::move(helper), .limits = limits, .logons = std::move(logons)}))
    , pool_(settings_->helper, settings_->limits, settings_->logons) {}

std::optional<std::vector<NetRecord>> SmbProvider::List(const NetRecord& node, qint32 type) {
    const bool isDisks = type == NetEnum::TypeDisk;
    switch (node.dwDisplayType) {
    case NetEnum::DisplayNetwork:
    case NetEnum::DisplayDomain:
        if (!isDisks)
            return std::vector<NetRecord>();
        if (!computers_.Look([&] { ExpectKnown(node); }))
            return std::nullopt;
        return node.dwDisplayType == NetEnum::DisplayNetwork ? Workgroups()
                                                             : Servers(node.lpRemoteName);
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
    for (const QString& workgroup : computers_.Workgroups())
        records.push_back(Record(NetEnum::DisplayDomain, workgroup, QString()));
    return records;
}

std::vector<NetRecord> SmbProvider::Servers(const QString& workgroup) const {
    std::vector<NetRecord> records;
    for (const SmbHost* host : computers_.In(workgroup))
        records.push_back(Record(NetEnum::DisplayServer, "\\\\"_L1 + host->name, QString()));
    return records;
}

/// While the LAN is still being asked for computers, begins to read ahead those that are known
/// already. Not those whose workgroup may still be told, as they may come to stand elsewhere; nor
/// those known only by an address that holds on one link, as a better one is to come.
void SmbProvider::ExpectKnown(const NetRecord& node) {
    if (!ahead_)
        return;
    std::vector<WalkPlace> places;
    for (const SmbHost& host : computers_.All()) {
        const QString name = "\\\\"_L1 + host.name;
        const bool isBelow = host.workgroup && !SmbComputers::IsOfOneLink(host.address) &&
                             (node.dwDisplayType == NetEnum::DisplayNetwork ||
                              IsSameName(*host.workgroup, node.lpRemoteName)) &&
                             plan_->EntersWorkgroup(*host.workgroup);
        if (isBelow && plan_->EntersComputer(name))
            places.push_back(
                {.kind = WalkPlace::Kind::Computer, .remoteName = name, .provider = Name()});
    }
    Expect(places);
}

/// A computer whose path somebody has typed may be found on the LAN, which is quicker than asking
/// for a name that nobody knows.
void SmbProvider::LookFor(const QString& server) {
    if (!computers_.Find(server) && !computers_.HasLooked())
        static_cast<void>(computers_.Look());
}

std::optional<std::vector<NetRecord>> SmbProvider::SharesOf(const QString& server, qint32 type) {
    lastStatus_ = 0;
    const QString key = ServerKey(server);
    SmbShares shares;
    if (const SmbList* known = recent_.Find(key)) {
        shares = known->shares;
    } else {
        LookFor(server);
        const SmbList list = Fetch(key, Request(SmbRequest::Kind::ListShares, server));
        if (!list.IsThere())
            return std::nullopt;
        shares = list.shares;
        recent_.Keep(key, list, RecentLists::OfShares);
    }
    const auto wanted = type == NetEnum::TypePrint ? SmbShare::Kind::Printer : SmbShare::Kind::Disk;
    std::vector<NetRecord> records;
    for (const SmbShare& share : shares) {
        if (share.kind == wanted)
            records.push_back(Record(NetEnum::DisplayShare, "\\\\"_L1 + server + u'\\' + share.name,
                                     share.comment, type));
    }
    return records;
}

QString SmbProvider::Trouble(const UncPath& path) const {
    if (!path.Elements().isEmpty())
        return TroubleOfFolder(lastStatus_);
    return path.Share().isEmpty() ? TroubleOfComputer(lastStatus_) : TroubleOfShare(lastStatus_);
}

QString SmbProvider::Source() const {
    const auto named = static_cast<int>(computers_.Configured());
    const auto text = [&] {
        if (!computers_.Finds())
            return named == 0 ? NotSearched::tr("%1: nobody; network.ini names no computer there, "
                                                "and has Find=No, which keeps the others out.")
                              : NotSearched::tr("%1: only the computers that network.ini names "
                                                "(%n); its Find=No keeps the others out.",
                                                nullptr, named);
        return named == 0 ? NotSearched::tr("%1: computers that announce themselves, by "
                                            "WS-Discovery, DNS-SD or NetBIOS; network.ini names "
                                            "none.")
                          : NotSearched::tr("%1: computers that announce themselves, by "
                                            "WS-Discovery, DNS-SD or NetBIOS, and those that "
                                            "network.ini names (%n).",
                                            nullptr, named);
    };
    return text().arg(Name());
}

QString SmbProvider::Workgroup(const QString& server) {
    LookFor(server);
    const SmbHost* host = computers_.Find(server);
    if (host && host->workgroup)
        return *host->workgroup;
    const QString workgroup = AskWorkgroup(server);
    if (host && !workgroup.isEmpty())
        computers_.NoteWorkgroup(server, workgroup);
    return workgroup;
}

bool SmbProvider::IsThisComputer(const QString& server) const {
    const SmbHost host =
        computers_.Find(server) ? *computers_.Find(server) : SmbHost{.name = server};
    return host.port == SmbHost::UsualPort &&
           IsOwnAddress(host.address.isEmpty() ? host.name : host.address);
}

QString SmbProvider::AskWorkgroup(const QString& server) {
    QString workgroup;
    const auto take = [&](SmbAnswer& part) {
        const auto* told = std::get_if<SmbWorkgroup>(&part);
        if (!told || !IsNodeName(told->name))
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

/// A folder that can be listed can be entered. The caller lists it next, and finds the listing
/// kept.
bool SmbProvider::CanEnter(const UncPath& path) {
    return Entries(path) != nullptr;
}

SmbListing SmbProvider::Entries(const UncPath& path) {
    const QString folder = FolderKey(path);
    lastStatus_ = 0;
    if (path.Share().isEmpty() || junctions_.IsInLoop(folder))
        return nullptr;
    if (const SmbList* known = recent_.Find(folder))
        return known->entries;
    LookFor(path.Server());
    const SmbList list = Fetch(folder, Request(SmbRequest::Kind::ListFolder, path));
    const FolderTrail above = trail_.To(folder);
    if (!list.IsThere() || above.Passes(list.print))
        return nullptr;
    trail_ = above.With(folder, list.print);
    junctions_.Note(folder, *list.entries);
    recent_.Keep(folder, list, RecentLists::OfFolders);
    return list.entries;
}

SmbList SmbProvider::Fetch(const QString& key, const SmbRequest& request) {
    const auto run = [this](const SmbRequest& asked, const SmbWorker::Part& part) {
        return pool_.Run(asked, part);
    };
    SmbList list = ahead_ ? ahead_->Ask(key, request) : FetchList(request, run);
    lastStatus_ = list.status;
    return list;
}

void SmbProvider::BeginWalk(const std::shared_ptr<const WalkPlan>& plan) {
    ahead_.reset();
    recent_.Clear();
    junctions_ = {};
    trail_ = {};
    computers_.BeginWalk();
    pool_.BeginWalk();
    plan_ = plan;
    ahead_ = std::make_unique<SmbAhead>(pool_, plan);
}

void SmbProvider::Expect(const std::vector<WalkPlace>& places) {
    if (!ahead_)
        return;
    std::vector<WalkOrder::Start> starts;
    for (const WalkPlace& place : places) {
        const auto path = UncPath::Parse(place.remoteName);
        if (!path)
            continue;
        LookFor(path->Server());
        if (place.kind == WalkPlace::Kind::Folder)
            AddStart(*path, place.remoteName.size(), starts);
        else if (path->Share().isEmpty())
            AddComputer(place, *path, starts);
    }
    ahead_->Expect(starts);
}

/// Adds the computer's list of shares, which tells whether the computer lets the user in, before
/// the shares that are walked without being in the list.
void SmbProvider::AddComputer(const WalkPlace& computer, const UncPath& path,
                              std::vector<WalkOrder::Start>& starts) {
    const SmbRequest request = Request(SmbRequest::Kind::ListShares, path.Server());
    if (!computer.isListed && !recent_.Find(FolderKey(path)))
        starts.push_back({.request = request,
                          .server = SmbServers::NameOf(request),
                          .key = FolderKey(path),
                          .path = computer.remoteName});
    for (const QString& share : plan_->AdminShares()) {
        const QString folder = computer.remoteName + u'\\' + share;
        const auto folderPath = UncPath::Parse(folder);
        if (folderPath && plan_->EntersFolder(folder + u'\\', computer.remoteName.size(), 0))
            AddStart(*folderPath, computer.remoteName.size(), starts);
    }
}

void SmbProvider::AddStart(const UncPath& path, qsizetype nodeLength,
                           std::vector<WalkOrder::Start>& starts) const {
    if (path.Share().isEmpty())
        return;
    const SmbRequest request = Request(SmbRequest::Kind::ListFolder, path);
    starts.push_back({.request = request,
                      .server = SmbServers::NameOf(request),
                      .key = FolderKey(path),
                      .path = path.Text() + u'\\',
                      .nodeLength = nodeLength});
}

void SmbProvider::Leave(const QString& remoteName) {
    const auto path = UncPath::Parse(remoteName);
    if (ahead_ && path)
        ahead_->Leave(FolderKey(*path));
}

void SmbProvider::EndWalk() {
    ahead_.reset();
    computers_.EndWalk();
    pool_.EndWalk();
}

QStringList SmbProvider::Computers(const QString& workgroup) const {
    QStringList names;
    for (const NetRecord& record : Servers(workgroup))
        names += record.lpRemoteName;
    return names;
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
    LookFor(path.Server());
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
    if (auto ahead = ReadAhead(path, offset, length))
        return *ahead;
    const auto run = [this](const SmbRequest& asked, const SmbWorker::Part& part) {
        return pool_.Run(asked, part);
    };
    QByteArray bytes;
    SmbRequest request = Request(SmbRequest::Kind::Read, path);
    while (bytes.size() < length) {
        request.offset = offset + bytes.size();
        request.length = static_cast<quint32>(std::min<qint64>(ReadBytes, length - bytes.size()));
        QByteArray piece;
        if (const int status = FetchPiece(request, run, piece); status != 0)
            throw RunTimeError(ErrorOfSmbRequest(pool_, request, status, SmbAction::Read));
        bytes += piece;
        if (piece.size() < static_cast<qsizetype>(request.length))
            break;
    }
    return bytes;
}

/// The piece of the file, if it has been read ahead.
std::optional<QByteArray> SmbProvider::ReadAhead(const UncPath& path, qint64 offset,
                                                 qint64 length) {
    if (!ahead_ || path.Elements().isEmpty() || !plan_->ReadsFile(path.Elements().last()))
        return std::nullopt;
    const QString folder = FolderKey(path, path.Elements().size() - 1);
    return ahead_->FindPiece(FileKey(folder, path.Elements().last()), offset, length);
}

std::optional<QString> SmbProvider::LocalPath(const UncPath& /*path*/) {
    return std::nullopt;
}

std::shared_ptr<const RemotePlace> SmbProvider::RemotePlaceOf(const UncPath& path) const {
    return std::make_shared<SmbPlace>(settings_, Request(SmbRequest::Kind::Read, path));
}

SmbRequest SmbProvider::Request(SmbRequest::Kind kind, const QString& server) const {
    SmbRequest request = {.kind = kind, .host = server, .computer = server};
    if (const SmbHost* host = computers_.Find(server)) {
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
