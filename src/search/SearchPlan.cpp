#include "search/SearchPlan.h"

#include "runtime/Text.h"
#include "search/AdminShares.h"
#include "search/FolderScan.h"

namespace netrove {

SearchPlan::SearchPlan(const Settings& settings, const ExclusionLists& exclusions, bool recurse)
    : settings_(settings), exclusions_(exclusions), recurse_(recurse) {}

bool SearchPlan::EntersNetwork(const QString& name) const {
    return !exclusions_.UseExcNetworks || !ExclusionLists::Find(exclusions_.ExcNetworks, name);
}

bool SearchPlan::EntersWorkgroup(const QString& name) const {
    return !exclusions_.UseExcWorkgroups || !ExclusionLists::Find(exclusions_.ExcWorkgroups, name);
}

bool SearchPlan::EntersComputer(const QString& remoteName) const {
    return (settings_.IncludeCurrentComputer || !IsCurrentComputer(settings_, remoteName)) &&
           (!exclusions_.UseExcWorkstations ||
            !ExclusionLists::Find(exclusions_.ExcWorkstations, remoteName));
}

bool SearchPlan::EntersShare(const QString& remoteName) const {
    const QString name = remoteName.mid(remoteName.lastIndexOf(QLatin1Char('\\')) + 1);
    return !exclusions_.UseExcShares || !ExclusionLists::Find(exclusions_.ExcShares, name);
}

bool SearchPlan::EntersFolder(const QString& folderPath, qsizetype nodeLength, int depth) const {
    return depth < FolderScan::MaxDepth && (depth == 0 || recurse_) &&
           (!exclusions_.UseExcFolders || !exclusions_.FindFolder(folderPath.mid(nodeLength)));
}

QStringList SearchPlan::AdminShares() const {
    return settings_.IncludeAdminShares ? AdminShareNames() : QStringList();
}

bool SearchPlan::IsCurrentComputer(const Settings& settings, const QString& remoteName) {
    return UpperCase(Trim(settings.CurrentComputerName)) == UpperCase(Trim(remoteName));
}

} // namespace netrove
