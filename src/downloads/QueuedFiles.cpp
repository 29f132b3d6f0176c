#include "downloads/QueuedFiles.h"

#include "downloads/DownloadRows.h"

namespace netrove {

bool QueuedFiles::Contains(const QString& location, const QString& name) {
    if (version_ != list_.RowsVersion()) {
        files_.clear();
        for (int row = 1; row <= list_.Count(); ++row)
            files_.insert({list_.SubItem(row, DownloadItem::Location), list_.Text(row)});
        version_ = list_.RowsVersion();
    }
    return files_.contains({location, name});
}

void QueuedFiles::NoteAdded(const QString& location, const QString& name) {
    files_.insert({location, name});
    version_ = list_.RowsVersion();
}

} // namespace netrove
