#pragma once

#include "controls/ListView.h"
#include "controls/StatusBar.h"
#include "platform/Dialogs.h"
#include "platform/NetworkReport.h"
#include "runtime/RunTimeError.h"
#include "search/ExclusionLists.h"
#include "search/NWSearch.h"
#include "searchrun/ComputerPanel.h"
#include "searchrun/ResultRows.h"
#include "searchrun/SearchState.h"
#include "searchrun/job/CurrentJob.h"
#include "settings/Settings.h"
#include "windowservices/WindowControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTabWidget>

namespace netrove {

/// A search of the window, from the click on the search button to the summary: prepares the input
/// and the window, stays inside the engine's walk until it has ended, and enables the window again.
class SearchRun {
public:
    struct Services {
        SearchServices search;
        ExclusionLists& exclusions; ///< the ones that the engine reads
        Dialogs& dialogs;
        NetworkReport* report; ///< may be null
    };

    SearchRun(const WindowControls& controls, CurrentJob& job, const Services& services,
              SearchState& state, ResultRows& rows)
        : controls_(controls)
        , job_(job)
        , services_(services)
        , state_(state)
        , rows_(rows)
        , computers_(controls.stbStatus) {}

    /// Makes the whole search; does nothing while a job runs. Failures end in a message box;
    /// nothing is raised.
    void cmdStartSearch_Click();

    /// Asks the running walk to stop at its next test.
    void cmdAbandon_Click();

private:
    /// Returns the number of whole seconds that the walk took; nothing if there was no text to
    /// search for.
    [[nodiscard]] std::optional<qint64> Run(CurrentJob::Run& job);
    [[nodiscard]] QString TakeSearchText();
    void RefuseEmptyText();
    void RememberSearchText(const QString& text);
    void ParseExclusions();
    void ClearResults();
    void SetSizeHeaders();
    void ConnectEngine(NWSearch& engine);
    void ShowFailure(const RunTimeError& error);
    void GiveControlsBack(CurrentJob::Run& job);
    void WriteSummary(qint64 seconds);
    void RepaintWindow();

    WindowControls controls_;
    CurrentJob& job_;
    Services services_;
    SearchState& state_;
    ResultRows& rows_;
    ComputerPanel computers_;
};

} // namespace netrove
