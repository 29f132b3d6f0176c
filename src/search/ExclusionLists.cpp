#include "search/ExclusionLists.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"

#include <algorithm>

namespace netrove {
namespace {

/// The element that equals a node's name.
const QString* Find(bool isActive, const QStringList& list, const QString& name) {
    if (!isActive)
        return nullptr;
    const QString compared = UpperCase(Trim(name));
    const auto found = std::find_if(list.cbegin(), list.cend(), [&](const QString& entry) {
        return EqualText(entry, compared);
    });
    return found == list.cend() ? nullptr : &*found;
}

} // namespace

void ExclusionLists::ParseNetNodes(const Settings& settings) {
    for (QStringList* list :
         {&ExcFolders, &ExcShares, &ExcWorkstations, &ExcWorkgroups, &ExcNetworks})
        list->clear();
    for (const QString& entry : settings.ExcNetNodes)
        AddEntry(entry);
    const auto active = [&settings](const QStringList& list) {
        return !list.isEmpty() && settings.ExcludeNetNodes;
    };
    UseExcFolders = active(ExcFolders);
    UseExcShares = active(ExcShares);
    UseExcWorkstations = active(ExcWorkstations);
    UseExcWorkgroups = active(ExcWorkgroups);
    UseExcNetworks = active(ExcNetworks);
}

void ExclusionLists::TurnOff() {
    UseExcFolders = false;
    UseExcShares = false;
    UseExcWorkstations = false;
    UseExcWorkgroups = false;
    UseExcNetworks = false;
}

void ExclusionLists::AddEntry(const QString& entry) {
    const QStringList fields = entry.split(u'|');
    if (fields.size() < 3)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    const QString type = UpperCase(fields[2]);
    const bool folder = type == "FOLDER"_L1;
    const bool workstation = type == "WORKSTATION"_L1;
    const bool workgroup = type == "WORKGROUP"_L1;
    const bool network = type == "NETWORK"_L1;
    if (!folder && !workstation && !workgroup && !network)
        return;
    if (!ToBoolean(fields[1]))
        return;
    const QString name = UpperCase(Trim(fields[0]));
    if (folder) {
        ExcFolders.append(u'\\' + name + u'\\');
        ExcShares.append(name);
    } else if (workstation) {
        ExcWorkstations.append("\\\\"_L1 + name);
    } else if (workgroup) {
        ExcWorkgroups.append(name);
    } else {
        ExcNetworks.append(name);
    }
}

const QString* ExclusionLists::Network(const QString& remoteName) const {
    return Find(UseExcNetworks, ExcNetworks, remoteName);
}

const QString* ExclusionLists::Workgroup(const QString& remoteName) const {
    return Find(UseExcWorkgroups, ExcWorkgroups, remoteName);
}

const QString* ExclusionLists::Workstation(const QString& remoteName) const {
    return Find(UseExcWorkstations, ExcWorkstations, remoteName);
}

const QString* ExclusionLists::Share(const QString& shortName) const {
    return Find(UseExcShares, ExcShares, shortName);
}

const QString* ExclusionLists::Folder(const QString& pathBelow) const {
    if (!UseExcFolders)
        return nullptr;
    const QString below = UpperCase(pathBelow);
    const auto found =
        std::find_if(ExcFolders.cbegin(), ExcFolders.cend(), [&](const QString& entry) {
            return below.contains(entry, Qt::CaseInsensitive);
        });
    return found == ExcFolders.cend() ? nullptr : &*found;
}

} // namespace netrove
