#pragma once

#include "smb/SmbMessages.h"

#include <QString>

#include <memory>

namespace netrove {

/// What tells a folder from all others of its server, whatever path it was reached by.
struct FolderPrint {
    SmbFolder folder = {};
    std::size_t subfolders = 0; ///< a hash of their names

    /// The same folder agrees in both. The server's own number isn't enough: some servers give the
    /// top folders of two disks the same number, and a snapshot the number of its original.
    [[nodiscard]] bool IsSame(const FolderPrint& other) const {
        return folder.number != 0 && folder == other.folder && subfolders == other.subfolders;
    }
};

/// The print of a folder with these entries.
[[nodiscard]] FolderPrint PrintOf(const SmbFolder& folder, const SmbEntries& entries);

/// The way of a walk down to a folder: the prints of the folders that it has gone through. A server
/// that follows links by itself doesn't say so: a folder that is the same as one of those above it
/// is a link that leads back. Folders are named by FolderKeys.h.
class FolderTrail {
public:
    /// The part of the trail that leads to the folder with that key.
    [[nodiscard]] FolderTrail To(const QString& folderKey) const;
    [[nodiscard]] FolderTrail With(const QString& folderKey, const FolderPrint& print) const;

    [[nodiscard]] bool Passes(const FolderPrint& print) const;

private:
    struct Link {
        QString key;
        FolderPrint print;
        std::shared_ptr<const Link> above;
    };

    std::shared_ptr<const Link> last_;
};

} // namespace netrove
