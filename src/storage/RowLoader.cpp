#include "storage/RowLoader.h"

#include "runtime/Yield.h"

namespace netrove {
namespace {

/// Lines that are read ahead, to see which folders are worth listing.
constexpr int LinesAhead = 500;

/// Milliseconds that a load may go without a row, and so without a yield, before the user's input
/// is served.
constexpr qint64 LongestSilence = 50;

QString FolderOf(const QString& path) {
    return path.left(path.lastIndexOf(u'\\') + 1);
}

} // namespace

qint32 RowLoader::Load(ResultsReader& reader) {
    sinceServing_.start();
    while (!reader.AtEnd()) {
        ReadAhead(reader);
        for (const QString& path : next_) {
            if (!LoadFile(path))
                return loaded_;
        }
    }
    return loaded_;
}

void RowLoader::ReadAhead(ResultsReader& reader) {
    next_.clear();
    shared_.clear();
    QSet<QString> folders;
    for (int line = 0; line < LinesAhead && !reader.AtEnd(); ++line) {
        const std::optional<QString> path = reader.NextPath();
        if (!path)
            continue;
        next_.push_back(*path);
        const QString folder = FolderOf(*path);
        if (folders.contains(folder))
            shared_.insert(folder);
        folders.insert(folder);
    }
    ServeUser();
}

/// False where the load ends.
bool RowLoader::LoadFile(const QString& path) {
    if (!Exists(path)) {
        // Missing files come in long runs where a computer is off: those can be aborted too.
        ServeUser();
        return !state_.AbandonFlag;
    }
    ++loaded_;
    try {
        rows_.SearchEvt_ItemFound(path);
    } catch (...) {
        // The row stays as far as it got.
    }
    if (state_.FilesFound >= settings_.MaxReturnFiles)
        return false;
    Yield();
    sinceServing_.start();
    return !state_.AbandonFlag;
}

bool RowLoader::Exists(const QString& path) {
    try {
        // One listing answers for all files of a folder.
        if (const QString folder = FolderOf(path); shared_.remove(folder))
            static_cast<void>(files_.CanEnter(folder));
        return (files_.Attributes(path) & FileAttribute::Directory) == 0;
    } catch (...) {
        return false;
    }
}

void RowLoader::ServeUser() {
    if (sinceServing_.elapsed() < LongestSilence)
        return;
    Yield();
    sinceServing_.start();
}

} // namespace netrove
