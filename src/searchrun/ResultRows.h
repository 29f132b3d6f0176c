#pragma once

#include "controls/ListView.h"
#include "controls/StatusBar.h"
#include "platform/Files.h"
#include "searchrun/SearchState.h"
#include "searchrun/columns/AudioColumns.h"
#include "services/FileDetails.h"
#include "settings/Settings.h"
#include "windowservices/IconImages.h"
#include "windowservices/WindowControls.h"

#include <QLabel>
#include <QString>

namespace netrove {

/// Numbers of some columns of lvwResults, counted from 1.
namespace ResultColumn {
inline constexpr int FileName = 1;
inline constexpr int Size = 3;
inline constexpr int Size2 = 9;  ///< hidden sort key
inline constexpr int Date2 = 10; ///< hidden sort key
} // namespace ResultColumn

/// The window's side of a search: turns each found file into a row of the results list, counts the
/// rows up to their cap, and shows in the status bar where the walk is.
class ResultRows {
public:
    ResultRows(const WindowControls& controls, SearchState& state, const Settings& settings,
               FileAccess& files, IconImages& icons)
        : controls_(controls)
        , state_(state)
        , settings_(settings)
        , files_(files)
        , icons_(icons)
        , audio_(files) {}

    /// Adds a row for the file. Does nothing if the file can't be read any more; if the cap has
    /// been reached, abandons the running search instead. Raises what reading the audio header
    /// raises; the row then stays as far as it was filled.
    void SearchEvt_ItemFound(const QString& netPath);
    /// The same for a caller that has the file's data already.
    void AddFile(const QString& netPath, const FileInfo& info);

    /// Shows the path in the status bar, and yields.
    void SearchEvt_SearchUpdate(const QString& netPath);

    /// Forgets the last audio file.
    void ReleaseAudioFile() { audio_.ReleaseAudioFile(); }

private:
    void Add(const QString& netPath, const FileDetails& details);
    void FillRow(int row, const FileDetails& details, const QString& extension,
                 const QString& typeName);

    WindowControls controls_;
    SearchState& state_;
    const Settings& settings_;
    FileAccess& files_;
    IconImages& icons_;
    AudioColumns audio_;
};

} // namespace netrove
