#include "search/NWSearch.h"

#include "runtime/Formats.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"
#include "search/AdminShares.h"

#include <QScopeGuard>

#include <limits>

namespace netrove {

namespace {

/// The patterns of a comma-separated list.
std::vector<Pattern> Patterns(const QString& fileName) {
    std::vector<Pattern> patterns;
    for (const QString& piece : fileName.split(u','))
        patterns.emplace_back(Trim(piece));
    return patterns;
}

bool ContainsComputers(const NetResource& node) {
    switch (node.ResourceType()) {
    case ResourceType::Network:
    case ResourceType::Domain:
    case ResourceType::Group:
        return true;
    default:
        return node.RemoteName().isEmpty(); // the root
    }
}

} // namespace

NWSearch::NWSearch(const SearchServices& services)
    : context_{.services = services,
               .ItemFound = {},
               .SearchUpdate = {},
               .PatternList = {},
               .ResultList = {}}
    , folders_(context_) {
    context_.ItemFound = [this](const QString& netPath) {
        if (ItemFound)
            ItemFound(netPath);
    };
    context_.SearchUpdate = [this](const QString& netPath) {
        if (SearchUpdate)
            SearchUpdate(netPath);
    };
}

void NWSearch::BeginSearch(const QString& fileName,
                           const std::shared_ptr<NetResource>& networkStartPoint) {
    LogSearchHead();
    Yield();
    context_.AbandonRequested = false;
    context_.ResultList.assign(1, QString());
    reachedComputers_ = 0;
    knownComputers_ = 0;
    hasEmptyList_ = false;
    if (!networkStartPoint)
        throw RunTimeError(ErrorNumber::ObjectNotSet);
    patterns_ = Patterns(fileName);
    ahead_.emplace(context_.services.ahead, std::make_shared<const SearchPlan>(
                                                context_.services, patterns_, recurseFolders_));
    const auto end = qScopeGuard([this] { ahead_.reset(); });
    ahead_->Expect(*networkStartPoint);
    SearchNode(*networkStartPoint);
}

QString NWSearch::GetResult(qint32 resultNumber) const {
    Yield();
    if (resultNumber < 1 || resultNumber > NumResults())
        return QString();
    return context_.ResultList[static_cast<std::size_t>(resultNumber)];
}

qint32 NWSearch::NumResults() const {
    return context_.ResultList.empty() ? 0 : static_cast<qint32>(context_.ResultList.size() - 1);
}

void NWSearch::SearchNode(NetResource& node) {
    Yield();
    if (node.ResourceType() == ResourceType::Server)
        ++reachedComputers_;
    context_.Update(node.RemoteName());
    if (context_.AbandonRequested)
        return;
    context_.services.log.PrintNode(u"NETWORK SEARCH"_s, node);
    context_.NodeBaseStart = node.RemoteName().size() + 1;
    if (ActOnNode(node) == Next::WalkChildren)
        WalkChildren(node);
}

NWSearch::Next NWSearch::ActOnNode(NetResource& node) {
    const ExclusionLists& exclusions = context_.services.exclusions;
    switch (node.ResourceType()) {
    case ResourceType::Network:
        return IsExcluded(exclusions.Network(node.RemoteName()), "Exclude Network: "_L1)
                   ? Next::Leave
                   : Next::WalkChildren;
    case ResourceType::Domain:
    case ResourceType::Group:
        return IsExcluded(exclusions.Workgroup(node.RemoteName()), "Exclude Workgroup: "_L1)
                   ? Next::Leave
                   : Next::WalkChildren;
    case ResourceType::Server:
        return ActOnServer(node);
    case ResourceType::Share:
    case ResourceType::ShareAdmin:
    case ResourceType::Directory:
        return ActOnShare(node);
    case ResourceType::Generic:
    case ResourceType::File:
    case ResourceType::Root:
    case ResourceType::Tree:
    case ResourceType::NDSContainer:
    case ResourceType::Printer:
        break;
    }
    if (context_.services.log.IsOn())
        context_.services.log.PrintBlock({"Other Type: "_L1 + node.ResourceTypeName()});
    return Next::WalkChildren;
}

NWSearch::Next NWSearch::ActOnServer(const NetResource& node) {
    const ExclusionLists& exclusions = context_.services.exclusions;
    if (!context_.services.settings.IncludeCurrentComputer && IsCurrentComputer(node))
        return Next::Leave;
    if (IsExcluded(exclusions.Workstation(node.RemoteName()), "Exclude Workstation: "_L1))
        return Next::Leave;
    Yield();
    if (context_.services.settings.IncludeAdminShares &&
        SearchAdminShares(node.RemoteName()) == Next::Leave)
        return Next::Leave;
    return context_.AbandonRequested ? Next::Leave : Next::WalkChildren;
}

bool NWSearch::IsCurrentComputer(const NetResource& node) {
    const Settings& settings = context_.services.settings;
    if (!SearchPlan::IsCurrentComputer(settings, context_.services.network, node.RemoteName()))
        return false;
    context_.services.log.PrintBlock(
        {"Exclude Current Workstation: "_L1 + settings.CurrentComputerName});
    return true;
}

NWSearch::Next NWSearch::SearchAdminShares(const QString& server) {
    for (const QString& share : AdminShareNames()) {
        SearchPath(server + u'\\' + share);
        if (context_.AbandonRequested)
            return Next::Leave;
    }
    return Next::WalkChildren;
}

NWSearch::Next NWSearch::ActOnShare(const NetResource& node) {
    const ExclusionLists& exclusions = context_.services.exclusions;
    if (IsExcluded(exclusions.Share(node.ShortName()), "Exclude Share: "_L1))
        return Next::Leave;
    Yield();
    const bool isFolder = folders_.IsFolder(node.RemoteName());
    Yield();
    if (isFolder)
        SearchPath(node.RemoteName());
    return context_.AbandonRequested ? Next::Leave : Next::WalkChildren;
}

/// Whether an entry keeps a node out; if so, writes it to the log.
bool NWSearch::IsExcluded(const QString* entry, QLatin1String logLine) {
    if (entry == nullptr)
        return false;
    context_.services.log.PrintBlock({logLine + *entry});
    return true;
}

void NWSearch::WalkChildren(NetResource& node) {
    const auto children = node.Children();
    if (!children)
        return;
    hasEmptyList_ = hasEmptyList_ || (children->Count() == 0 && ContainsComputers(node));
    knownComputers_ +=
        static_cast<int>(std::count_if(children->begin(), children->end(), [](const auto& child) {
            return child->ResourceType() == ResourceType::Server;
        }));
    ahead_->Expect(*children);
    // The trap catches one failure, of whatever kind: a second one among these children goes up to
    // the next level.
    bool trapArmed = true;
    for (const auto& child : *children) {
        try {
            WalkChild(*child);
        } catch (...) {
            if (!trapArmed)
                throw;
            trapArmed = false;
        }
        if (context_.AbandonRequested)
            return;
        ahead_->Leave(*child);
    }
}

void NWSearch::WalkChild(NetResource& child) {
    Yield();
    if (child.ResourceType() != ResourceType::NDSContainer) {
        Yield();
        SearchNode(child);
        return;
    }
    Yield();
    const bool isFolder = folders_.IsFolder(child.RemoteName());
    Yield();
    if (isFolder)
        SearchPath(child.RemoteName());
    else if (context_.services.settings.IncludeVirtualShares)
        SearchNode(child);
}

void NWSearch::SearchPath(const QString& startPath) {
    Yield();
    context_.Update(startPath);
    Yield();
    if (patterns_.size() > static_cast<std::size_t>(std::numeric_limits<qint16>::max()))
        throw RunTimeError(ErrorNumber::Overflow);
    context_.PatternList.clear();
    for (const Pattern& pattern : patterns_) {
        Yield();
        context_.PatternList.push_back(pattern);
    }
    WalkRecord record{.Recurse = recurseFolders_, .Root = startPath};
    Yield();
    if (context_.AbandonRequested)
        return;
    folders_.WalkFolders(record);
}

void NWSearch::LogSearchHead() {
    context_.services.log.PrintBlock(
        {QString(60, u'-'), GeneralDate(QDateTime::currentDateTime())});
}

} // namespace netrove
