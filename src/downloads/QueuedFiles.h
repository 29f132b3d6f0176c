#pragma once

#include "controls/ListView.h"

#include <QSet>
#include <QString>

#include <utility>

namespace netrove {

/// An index of the files that have a row in the list of downloads, whatever its state. The list is
/// what counts: if rows have been added or removed without telling the index, it's made anew.
class QueuedFiles {
public:
    explicit QueuedFiles(const ListView& lvwDownloads) : list_(lvwDownloads) {}

    /// Compares exactly, case included.
    [[nodiscard]] bool Contains(const QString& location, const QString& name);

    /// Tells the index of the one row that has been added since the last Contains().
    void NoteAdded(const QString& location, const QString& name);

private:
    const ListView& list_;
    QSet<std::pair<QString, QString>> files_;
    quint64 version_ = 0; ///< RowsVersion() of the rows that files_ holds
};

} // namespace netrove
