#pragma once

#include "smb/SmbMessages.h"

#include <QSet>
#include <QString>

namespace netrove {

/// The junctions that have been seen: folders that lead elsewhere. One that leads back above
/// itself is met again below itself, without end.
class Junctions {
public:
    void Note(const QString& folderKey, const SmbEntries& entries);

    /// Whether the way to a folder, given by its key (FolderKeys.h), runs through a loop.
    [[nodiscard]] bool IsInLoop(const QString& folderKey) const;

private:
    QSet<QString> keys_;
};

} // namespace netrove
