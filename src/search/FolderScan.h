#pragma once

#include "search/SearchContext.h"

#include <QString>

namespace netrove {

/// What a walk through folders hands on from folder to folder.
struct WalkRecord {
    bool Recurse = false; ///< go into subfolders
    QString Root;         ///< the folder that the next WalkFolders takes
};

/// The walk through the folders below a share: the files of a folder first, then each of its
/// subfolders, depth first, in the order in which the server lists them. Folders that can't be
/// listed are silently passed over.
class FolderScan {
public:
    /// Levels of folders that a walk goes down. No path of a real server is that deep; a hostile
    /// one could answer every folder with another until the stack is used up.
    static constexpr int MaxDepth = 2000;

    explicit FolderScan(SearchContext& context) : context_(context) {}

    /// Walks `record.Root`. Raises what the handlers and the patterns raise.
    void WalkFolders(WalkRecord& record);

    /// Whether the program may enter `path` as a folder.
    [[nodiscard]] bool IsFolder(const QString& path);

private:
    void ScanFiles(const WalkRecord& record);
    [[nodiscard]] bool ScanEntry(const QString& folderPath, const FindData& entry, bool skipping);
    [[nodiscard]] bool MatchesPattern(const QString& name, bool skipping) const;
    void Report(const QString& netPath);
    [[nodiscard]] bool IsExcluded(const QString& folderPath);
    [[nodiscard]] bool WalkEntry(WalkRecord& record, const QString& folderPath,
                                 const FindData& entry);

    SearchContext& context_;
    int depth_ = 0;
};

} // namespace netrove
