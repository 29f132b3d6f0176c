#include "redirector/Network.h"

#include "runtime/Names.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <algorithm>
#include <limits>
#include <map>

namespace netrove {
namespace {

constexpr QLatin1String UncStart("\\\\");
constexpr QLatin1String AllEntries("*.*");

bool IsUnc(const QString& path) {
    return path.startsWith(UncStart);
}

QString WithoutUncStart(const QString& computer) {
    return IsUnc(computer) ? computer.mid(UncStart.size()) : computer;
}

bool IsShare(const std::optional<UncPath>& path) {
    return path && !path->Share().isEmpty() && path->Elements().isEmpty();
}

/// Whether a record's name can stand below the node: a server's shares are its own, and a
/// workgroup's name is no path.
bool FitsBelow(const NetRecord& node, const NetRecord& record) {
    const QString& name = record.lpRemoteName;
    if (name.size() > NameLimits::RemoteName)
        return false;
    if (record.dwDisplayType == NetEnum::DisplayShare) {
        const auto path = UncPath::Parse(name);
        return IsShare(path) && NameKey(UncStart + path->Server()) == NameKey(node.lpRemoteName);
    }
    if (record.dwDisplayType == NetEnum::DisplayServer) {
        const auto path = UncPath::Parse(name);
        return path && path->Share().isEmpty();
    }
    return IsPathElement(name);
}

/// Whether an entry's name can stand in a path; "." and ".." are folders in every listing.
bool IsEntry(const FindData& entry) {
    const QString& name = entry.fileName;
    const bool isDots = name == "."_L1 || name == ".."_L1;
    return IsPathElement(name) || (isDots && entry.IsDirectory());
}

/// A provider's listing without the entries that can't stand in a path.
class CheckedFind : public FileFind {
public:
    explicit CheckedFind(std::unique_ptr<FileFind> entries) : entries_(std::move(entries)) {}

    bool FindNext(FindData& data) override {
        while (entries_->FindNext(data)) {
            if (IsEntry(data))
                return true;
        }
        return false;
    }

private:
    std::unique_ptr<FileFind> entries_;
};

quint64 TextBytes(const QString& text) {
    return static_cast<quint64>(text.toUtf8().size()) + 1;
}

quint64 RecordSize(const NetRecord& record) {
    return NetEnum::RecordBytes + TextBytes(record.lpLocalName) + TextBytes(record.lpRemoteName) +
           TextBytes(record.lpComment) + TextBytes(record.lpProvider);
}

} // namespace

Network::Network(std::vector<std::unique_ptr<NetworkProvider>> providers)
    : providers_(std::move(providers)) {}

quint32 Network::OpenEnum(qint32 /*scope*/, qint32 type, qint32 /*usage*/, const NetRecord& start,
                          NetEnum::Handle& handle) {
    auto records = List(start, type);
    if (!records)
        return NetEnum::BadNetPath;
    handle = ++lastHandle_;
    openLists_.insert(handle, {.records = std::move(*records)});
    return NetEnum::NoError;
}

quint32 Network::EnumResource(NetEnum::Handle handle, qint32& count, std::vector<NetRecord>& buffer,
                              quint32& bufferSize) {
    const qint32 wanted = count;
    count = 0;
    buffer.clear();
    const auto found = openLists_.find(handle);
    if (found == openLists_.end())
        return NetEnum::InvalidHandle;
    OpenList& list = *found;
    if (list.next == list.records.size())
        return NetEnum::NoMoreItems;
    quint64 used = 0;
    while (list.next < list.records.size() && (wanted < 0 || count < wanted)) {
        const NetRecord& record = list.records[list.next];
        used += RecordSize(record);
        if (used > bufferSize)
            break;
        buffer.push_back(record);
        ++list.next;
        ++count;
    }
    if (count > 0 || wanted == 0)
        return NetEnum::NoError;
    bufferSize = static_cast<quint32>(std::min<quint64>(used, std::numeric_limits<quint32>::max()));
    return NetEnum::MoreData;
}

void Network::CloseEnum(NetEnum::Handle handle) {
    openLists_.remove(handle);
}

QString Network::Workgroup(const QString& computer) {
    const QString server = WithoutUncStart(computer);
    NetworkProvider* provider = ProviderFor(server);
    return provider != nullptr ? provider->Workgroup(server) : QString();
}

bool Network::IsThisComputer(const QString& computer) {
    const QString server = WithoutUncStart(computer);
    const NetworkProvider* provider = ProviderFor(server);
    return provider != nullptr && provider->IsThisComputer(server);
}

std::vector<NetRecord> Network::ProviderRecords() const {
    std::vector<NetRecord> records;
    for (const auto& provider : providers_)
        records.push_back({.dwScope = NetEnum::ScopeGlobalNet,
                           .dwType = 0,
                           .dwDisplayType = NetEnum::DisplayNetwork,
                           .dwUsage = NetEnum::UsageContainer,
                           .lpRemoteName = provider->Name(),
                           .lpProvider = provider->Name()});
    return records;
}

/// The records that may stand below a node; nothing where there is no list.
std::optional<std::vector<NetRecord>> Network::List(const NetRecord& node, qint32 type) {
    const bool disks = type == NetEnum::TypeDisk;
    std::optional<std::vector<NetRecord>> records;
    if (node.lpRemoteName.isEmpty())
        records = disks ? ProviderRecords() : std::vector<NetRecord>();
    else if (NetworkProvider* provider = ProviderOf(node)) {
        records = provider->List(node, type);
        if (const auto path = UncPath::Parse(node.lpRemoteName);
            path && node.dwDisplayType == NetEnum::DisplayServer)
            Note(*path, *provider, records.has_value());
    }
    if (!records)
        return std::nullopt;
    QSet<QString> names = disks || diskNode_ != node.lpRemoteName ? QSet<QString>() : diskNames_;
    std::erase_if(*records, [&](const NetRecord& record) {
        const QString key = NameKey(record.lpRemoteName);
        if (names.contains(key) || !FitsBelow(node, record))
            return true;
        names.insert(key);
        return false;
    });
    if (plan_ && node.dwDisplayType == NetEnum::DisplayNetwork && disks) {
        if (NetworkProvider* provider = ProviderOf(node))
            ExpectComputers(*provider, *records);
    }
    if (disks) {
        diskNode_ = node.lpRemoteName;
        diskNames_ = names;
    }
    return records;
}

/// Notes in the report whether a place answers. A failing folder is noted as its share, which isn't
/// searched to the end; a folder that answers isn't noted.
void Network::Note(const UncPath& path, const NetworkProvider& provider, bool answers) {
    QString name = "\\\\"_L1 + path.Server();
    if (!path.Share().isEmpty())
        name += u'\\' + path.Share();
    if (answers && provider.BrokeOff())
        report_.NoteSilence(name, NotSearched::tr("A list broke off: the rest isn't searched."));
    else if (!answers) {
        if (const QString trouble = provider.Trouble(path); !trouble.isEmpty())
            report_.NoteSilence(name, trouble);
    } else if (path.Elements().isEmpty())
        report_.NoteAnswer(name);
}

QStringList Network::Sources() const {
    QStringList sources;
    for (const auto& provider : providers_)
        sources.append(provider->Source());
    return sources;
}

/// The provider that lists what is below a node; null for shares, printers and folders.
NetworkProvider* Network::ProviderOf(const NetRecord& node) {
    if (const auto path = UncPath::Parse(node.lpRemoteName); path && !path->Share().isEmpty())
        return nullptr;
    for (const auto& provider : providers_) {
        if (NameKey(provider->Name()) == NameKey(node.lpProvider))
            return provider.get();
    }
    return IsUnc(node.lpRemoteName) ? ProviderFor(WithoutUncStart(node.lpRemoteName)) : nullptr;
}

NetworkProvider* Network::ProviderFor(const QString& server) {
    auto found =
        std::ranges::find_if(providers_, [&](const auto& one) { return one->Knows(server); });
    if (found == providers_.end())
        found =
            std::ranges::find_if(providers_, [](const auto& one) { return one->TakesUnknown(); });
    return found == providers_.end() ? nullptr : found->get();
}

QString Network::ProviderOf(const QString& server) {
    const NetworkProvider* provider = ProviderFor(WithoutUncStart(server));
    return provider != nullptr ? provider->Name() : QString();
}

std::optional<NetRecord> Network::Record(const UncPath& path) {
    const QString provider = ProviderOf(path.Server());
    const QString remoteName = path.Text();
    if (provider.isEmpty() || remoteName.size() > NameLimits::RemoteName)
        return std::nullopt;
    NetRecord record{.dwScope = NetEnum::ScopeGlobalNet,
                     .dwType = NetEnum::TypeDisk,
                     .dwDisplayType = NetEnum::DisplayServer,
                     .dwUsage = NetEnum::UsageContainer,
                     .lpRemoteName = remoteName,
                     .lpProvider = provider};
    if (path.Share().isEmpty())
        return record;
    record.dwDisplayType =
        path.Elements().isEmpty() ? NetEnum::DisplayShare : NetEnum::DisplayDirectory;
    record.dwUsage = NetEnum::UsageConnectable;
    return record;
}

void Network::BeginWalk(std::shared_ptr<const WalkPlan> plan) {
    plan_ = std::move(plan);
    for (const auto& provider : providers_)
        provider->BeginWalk(plan_);
}

void Network::Expect(const std::vector<WalkPlace>& places) {
    std::map<NetworkProvider*, std::vector<WalkPlace>> ofProvider;
    for (const WalkPlace& place : places) {
        if (NetworkProvider* provider = ProviderOf(place))
            ofProvider[provider].push_back(place);
    }
    for (const auto& [provider, some] : ofProvider)
        provider->Expect(some);
}

/// The provider that answers for a place; null where one provider lists a computer and another one
/// its shares.
NetworkProvider* Network::ProviderOf(const WalkPlace& place) {
    const auto path = UncPath::Parse(place.remoteName);
    if (!path)
        return nullptr;
    NetworkProvider* files = ProviderFor(path->Server());
    if (place.kind == WalkPlace::Kind::Folder)
        return files;
    NetworkProvider* lists =
        ProviderOf(NetRecord{.lpRemoteName = place.remoteName, .lpProvider = place.provider});
    return lists == files ? files : nullptr;
}

/// Computers that are known already are tried before their workgroups are listed: dead ones in
/// several workgroups cost one wait.
void Network::ExpectComputers(NetworkProvider& provider, const std::vector<NetRecord>& workgroups) {
    std::vector<WalkPlace> places;
    for (const NetRecord& workgroup : workgroups) {
        if (!plan_->EntersWorkgroup(workgroup.lpRemoteName))
            continue;
        for (const QString& computer : provider.Computers(workgroup.lpRemoteName)) {
            if (plan_->EntersComputer(computer))
                places.push_back({.kind = WalkPlace::Kind::Computer,
                                  .remoteName = computer,
                                  .provider = provider.Name()});
        }
    }
    Expect(places);
}

void Network::Leave(const QString& remoteName) {
    for (const auto& provider : providers_)
        provider->Leave(remoteName);
}

void Network::EndWalk() {
    for (const auto& provider : providers_)
        provider->EndWalk();
    plan_.reset();
}

std::optional<Network::Place> Network::PlaceOf(const QString& path) {
    auto unc = UncPath::Parse(path);
    if (!unc || unc->Share().isEmpty())
        return std::nullopt;
    NetworkProvider* provider = ProviderFor(unc->Server());
    if (provider == nullptr)
        return std::nullopt;
    return Place{.provider = *provider, .path = std::move(*unc)};
}

std::unique_ptr<FileFind> Network::FindFirst(const QString& searchPath, FindData& first) {
    if (!IsUnc(searchPath))
        return localFiles_.FindFirst(searchPath, first);
    if (!searchPath.endsWith(AllEntries))
        return nullptr;
    const auto place = PlaceOf(searchPath.chopped(AllEntries.size()));
    if (!place)
        return nullptr;
    auto entries = place->provider.FindFirst(place->path, first);
    if (!place->path.Elements().isEmpty())
        Note(place->path, place->provider, entries != nullptr);
    if (!entries)
        return nullptr;
    auto find = std::make_unique<CheckedFind>(std::move(entries));
    if (!IsEntry(first) && !find->FindNext(first))
        return nullptr;
    return find;
}

bool Network::CanEnter(const QString& path) {
    if (!IsUnc(path))
        return localFiles_.CanEnter(path);
    const auto place = PlaceOf(path);
    if (!place)
        return false;
    const bool answers = place->provider.CanEnter(place->path);
    if (place->path.Elements().isEmpty())
        Note(place->path, place->provider, answers);
    return answers;
}

FileInfo Network::Info(const QString& path) {
    if (!IsUnc(path))
        return localFiles_.Info(path);
    const auto place = PlaceOf(path);
    if (!place)
        throw RunTimeError(ErrorNumber::PathNotFound);
    return place->provider.Info(place->path);
}

QByteArray Network::Read(const QString& path, qint64 offset, qint64 length) {
    if (!IsUnc(path))
        return localFiles_.Read(path, offset, length);
    const auto place = PlaceOf(path);
    if (!place)
        throw RunTimeError(ErrorNumber::PathNotFound);
    return place->provider.Read(place->path, offset, length);
}

std::optional<QString> Network::LocalPath(const QString& path) {
    if (!IsUnc(path))
        return localFiles_.LocalPath(path);
    const auto place = PlaceOf(path);
    return place ? place->provider.LocalPath(place->path) : std::nullopt;
}

std::optional<ServerAddress> Network::Address(const QString& path) {
    const auto unc = UncPath::Parse(path);
    const NetworkProvider* provider = unc ? ProviderFor(unc->Server()) : nullptr;
    return provider != nullptr ? provider->Address(unc->Server()) : std::nullopt;
}

std::shared_ptr<const RemotePlace> Network::RemotePlaceOf(const UncPath& path) {
    const NetworkProvider* provider = ProviderFor(path.Server());
    return provider != nullptr ? provider->RemotePlaceOf(path) : nullptr;
}

} // namespace netrove
