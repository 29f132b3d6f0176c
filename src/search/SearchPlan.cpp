#include "search/SearchPlan.h"

#include "runtime/RunTimeError.h"
#include "runtime/Text.h"
#include "search/AdminShares.h"
#include "search/FolderScan.h"

#include <algorithm>
#include <utility>

namespace netrove {

SearchPlan::SearchPlan(const SearchServices& services, std::vector<Pattern> patterns, bool recurse)
    : settings_(services.settings)
    , exclusions_(services.exclusions)
    , network_(services.network)
    , reading_(services.reading)
    , patterns_(std::move(patterns))
    , recurse_(recurse) {}

bool SearchPlan::EntersNetwork(const QString& name) const {
    return !exclusions_.Network(name);
}

bool SearchPlan::EntersWorkgroup(const QString& name) const {
    return !exclusions_.Workgroup(name);
}

bool SearchPlan::EntersComputer(const QString& remoteName) const {
    return (settings_.IncludeCurrentComputer ||
            !IsCurrentComputer(settings_, network_, remoteName)) &&
           !exclusions_.Workstation(remoteName);
}

bool SearchPlan::EntersShare(const QString& remoteName) const {
    return !exclusions_.Share(remoteName.mid(remoteName.lastIndexOf(u'\\') + 1));
}

bool SearchPlan::EntersFolder(const QString& folderPath, qsizetype nodeLength, int depth) const {
    return depth < FolderScan::MaxDepth && (depth == 0 || recurse_) &&
           !exclusions_.Folder(folderPath.mid(nodeLength));
}

QStringList SearchPlan::AdminShares() const {
    return settings_.IncludeAdminShares ? AdminShareNames() : QStringList();
}

/// False if a pattern is invalid: the walk may still find files then, but they aren't read ahead.
bool SearchPlan::ReadsFile(const QString& name) const {
    if (!reading_.reads || !reading_.reads(name))
        return false;
    try {
        return std::ranges::any_of(patterns_,
                                   [&](const Pattern& one) { return one.Matches(name); });
    } catch (const RunTimeError&) {
        return false;
    }
}

void SearchPlan::ReadFile(FileAccess& files, const QString& path) const {
    reading_.read(files, path);
}

bool SearchPlan::IsCurrentComputer(const Settings& settings, NetworkEnumeration* network,
                                   const QString& remoteName) {
    return UpperCase(Trim(settings.CurrentComputerName)) == UpperCase(Trim(remoteName)) ||
           (network != nullptr && network->IsThisComputer(remoteName));
}

} // namespace netrove
