#pragma once

#include "platform/Files.h"
#include "platform/ReadAhead.h"
#include "searchrun/ResultRows.h"
#include "searchrun/SearchState.h"
#include "searchrun/job/CurrentJob.h"
#include "settings/Settings.h"
#include "storage/results/ResultsReader.h"

#include <QElapsedTimer>
#include <QSet>

#include <optional>
#include <vector>

namespace netrove {

/// Adds a row for each file of a results file that still exists. Failures are passed over.
class RowLoader {
public:
    /// `ahead` may be null: then the files are asked for one after another.
    RowLoader(FileAccess& files, ReadAhead* ahead, const Settings& settings, const CurrentJob& job,
              const SearchState& state, ResultRows& rows)
        : files_(files)
        , ahead_(ahead)
        , settings_(settings)
        , job_(job)
        , state_(state)
        , rows_(rows) {}

    /// Returns the number of files that exist. Ends early when the list is full or the user has
    /// pressed the abort button. To be called once.
    [[nodiscard]] qint32 Load(ResultsReader& reader);

private:
    void ReadLines(ResultsReader& reader);
    void ChooseFolders();
    [[nodiscard]] bool LoadFile(const QString& path);
    [[nodiscard]] std::optional<FileInfo> Find(const QString& path);
    void ServeUser();

    FileAccess& files_;
    ReadAhead* ahead_;
    const Settings& settings_;
    const CurrentJob& job_;
    const SearchState& state_;
    ResultRows& rows_;
    qint32 loaded_ = 0;
    std::vector<QString> next_; ///< paths of the next lines
    QSet<QString> toList_;      ///< their folders that are worth listing and aren't listed yet
    QSet<QString> expected_;    ///< all folders so far that are read ahead
    QElapsedTimer sinceServing_;
};

} // namespace netrove
