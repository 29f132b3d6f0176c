#pragma once

#include "settings/Settings.h"

#include <QString>
#include <QStringList>

namespace netrove {

/// The exclusion entries of the settings in the form in which the walk compares them: a snapshot,
/// made at the start of a search. Every text is trimmed and in upper case. A list counts only if
/// its flag is set.
class ExclusionLists {
public:
    QStringList ExcFolders;      ///< "\NAME\"
    QStringList ExcShares;       ///< "NAME"
    QStringList ExcWorkstations; ///< "\\NAME"
    QStringList ExcWorkgroups;   ///< "NAME"
    QStringList ExcNetworks;     ///< "NAME"

    bool UseExcFolders = false;
    bool UseExcShares = false;
    bool UseExcWorkstations = false;
    bool UseExcWorkgroups = false;
    bool UseExcNetworks = false;

    /// Makes the lists from the entries (name|enabled|type) and sets a list's flag if the list has
    /// an element and exclusion is on. An entry that is off or of an unknown type is left out.
    /// Raises ErrorNumber::SubscriptOutOfRange for an entry with fewer than three fields and
    /// ErrorNumber::TypeMismatch where "enabled" isn't a Boolean.
    void ParseNetNodes(const Settings& settings);

    /// Turns the five flags off, so that nothing is excluded.
    void TurnOff();

    /// The element that keeps a node out of searches; null if none does, or if its list's flag is
    /// off. Both the walk and the reading ahead of it use these. A node is given by its remote name
    /// (a workstation's begins with "\\"), a share by that name's last part; blanks at the ends and
    /// case make no difference.
    [[nodiscard]] const QString* Network(const QString& remoteName) const;
    [[nodiscard]] const QString* Workgroup(const QString& remoteName) const;
    [[nodiscard]] const QString* Workstation(const QString& remoteName) const;
    [[nodiscard]] const QString* Share(const QString& shortName) const;
    /// The same for a folder, given by its path below the node that is searched ("\FOLDER\"): an
    /// element of ExcFolders keeps out each folder whose path contains it.
    [[nodiscard]] const QString* Folder(const QString& pathBelow) const;

private:
    void AddEntry(const QString& entry);
};

} // namespace netrove
