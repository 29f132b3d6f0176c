#include "storage/RowLoader.h"

#include "runtime/Yield.h"

#include <QScopeGuard>

#include <memory>

namespace netrove {
namespace {

/// Lines that are read at a time, to see which folders are worth listing.
constexpr int LinesAhead = 500;

/// Milliseconds that a load may go on without a row, and so without a yield, before the user's
/// input is served.
constexpr qint64 LongestSilence = 50;

QString FolderOf(const QString& path) {
    return path.left(path.lastIndexOf(u'\\') + 1);
}

/// Enters the folders that the lines name, and nothing below them.
class LinesPlan : public WalkPlan {
public:
    bool EntersWorkgroup(const QString& /*name*/) const override { return false; }
    bool EntersComputer(const QString& /*remoteName*/) const override { return false; }
    bool EntersShare(const QString& /*remoteName*/) const override { return true; }
    bool EntersFolder(const QString& /*folderPath*/, qsizetype /*nodeLength*/,
                      int depth) const override {
        return depth == 0;
    }
    QStringList AdminShares() const override { return {}; }
};

} // namespace

qint32 RowLoader::Load(ResultsReader& reader) {
    if (ahead_)
        ahead_->BeginWalk(std::make_shared<LinesPlan>());
    const auto end = qScopeGuard([this] {
        if (ahead_)
            ahead_->EndWalk();
    });
    sinceServing_.start();
    while (!reader.AtEnd() && !job_.AbandonFlag) {
        ReadLines(reader);
        ChooseFolders();
        ServeUser();
        for (const QString& path : next_) {
            if (!LoadFile(path))
                return loaded_;
        }
    }
    return loaded_;
}

void RowLoader::ReadLines(ResultsReader& reader) {
    next_.clear();
    for (int line = 0; line < LinesAhead && !reader.AtEnd(); ++line) {
        if (const std::optional<QString> path = reader.NextPath())
            next_.push_back(*path);
    }
}

/// Chooses the folders to list: one listing tells about all files of a folder. If listings are read
/// ahead, many at a time, that pays even for a single file.
void RowLoader::ChooseFolders() {
    toList_.clear();
    QSet<QString> folders;
    std::vector<WalkPlace> places;
    for (const QString& path : next_) {
        const QString folder = FolderOf(path);
        if (folder.isEmpty())
            continue;
        const bool isFirst = !folders.contains(folder);
        folders.insert(folder);
        if (!isFirst || ahead_)
            toList_.insert(folder);
        if (!isFirst || !ahead_ || expected_.contains(folder))
            continue;
        expected_.insert(folder);
        places.push_back({.remoteName = folder.chopped(1)});
    }
    if (ahead_)
        ahead_->Expect(places);
}

/// Returns false if the load is to end.
bool RowLoader::LoadFile(const QString& path) {
    const std::optional<FileInfo> info = Find(path);
    if (!info) {
        // If a computer is off, many files in a row are missing: the user can abort that, too.
        ServeUser();
        return !job_.AbandonFlag;
    }
    ++loaded_;
    try {
        rows_.AddFile(path, *info);
    } catch (...) {
        // The row stays as far as it was filled.
    }
    if (state_.FilesFound >= settings_.MaxReturnFiles)
        return false;
    Yield();
    sinceServing_.start();
    return !job_.AbandonFlag;
}

/// The data of a file; nothing if it doesn't exist any more.
std::optional<FileInfo> RowLoader::Find(const QString& path) {
    try {
        if (const QString folder = FolderOf(path); toList_.remove(folder))
            static_cast<void>(files_.CanEnter(folder));
        const FileInfo info = files_.Info(path);
        if ((info.attributes & FileAttribute::Directory) == 0)
            return info;
    } catch (...) {
        // It doesn't exist.
    }
    return std::nullopt;
}

void RowLoader::ServeUser() {
    if (sinceServing_.elapsed() < LongestSilence)
        return;
    Yield();
    sinceServing_.start();
}

} // namespace netrove
