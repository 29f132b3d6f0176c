#pragma once

#include "settings/Settings.h"

#include <QString>
#include <QStringList>

namespace netrove {

/// The exclusion entries of the settings in the form in which the walk compares them: a snapshot,
/// made at the start of a search. Every text is trimmed and in upper case. Who reads a list first
/// reads its flag.
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

    /// Makes the lists from the entries (name|enabled|type) and sets each flag where its list has
    /// an element and exclusion is on. An entry that is off or of an unknown type is left out.
    /// Raises ErrorNumber::SubscriptOutOfRange for an entry with fewer than three fields and
    /// ErrorNumber::TypeMismatch where "enabled" isn't a Boolean.
    void ParseNetNodes(const Settings& settings);

    /// Turns the five flags off, so that nothing is excluded.
    void TurnOff();

    /// The entry that equals a node's name; null if none does.
    [[nodiscard]] static const QString* Find(const QStringList& list, const QString& name);

    /// The entry of ExcFolders that a folder's path below its node ("\FOLDER\") contains; null if
    /// there is none.
    [[nodiscard]] const QString* FindFolder(const QString& pathBelow) const;

private:
    void AddEntry(const QString& entry);
};

} // namespace netrove
