#pragma once

#include "controls/ListView.h"
#include "controls/StatusBar.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/ReadAhead.h"
#include "runtime/RunTimeError.h"
#include "searchrun/ResultRows.h"
#include "searchrun/SearchState.h"
#include "searchrun/job/CurrentJob.h"
#include "services/ShellServices.h"
#include "settings/Settings.h"
#include "storage/results/ResultsWriter.h"
#include "windowservices/WindowControls.h"

#include <QLabel>
#include <QTabWidget>

#include <optional>

namespace netrove {

/// Saves the rows of the results list to a file, and loads them again. The file tells where files
/// were seen: loading asks for each of them, and makes its row anew.
class ResultsFile {
public:
    struct Services {
        FileAccess& files;
        ReadAhead* ahead; ///< null if nothing is read ahead
        const Settings& settings;
        Dialogs& dialogs;
        ShellServices& shell;
        QString applicationFolder; ///< without a closing separator
    };

    ResultsFile(const WindowControls& controls, CurrentJob& job, const Services& services,
                SearchState& state, ResultRows& rows)
        : controls_(controls), job_(job), services_(services), state_(state), rows_(rows) {}

    /// Let the user choose a file, then save or load; do nothing while a job runs. Failures end in
    /// a message box.
    void mnuSaveResFile_Click();
    void mnuLoadResFile_Click();

    /// Shows the folder of results files: index 0 opens it, 1 explores it.
    void mnuListsFol_Click(int index);

    /// Writes all rows to the file; what it held is lost. `saved` becomes true only when every row
    /// has been written. Writes nothing while a job runs. After an abort, or a failure in the
    /// middle, the file has the rows so far; a file that can't be opened stays as it was. Failures
    /// are shown in a box.
    void SaveResFile(const QString& strFile, bool& saved);

    /// Adds a row for each file of the results file that still exists; none while a job runs.
    /// Failures aren't shown.
    void LoadResFile(const QString& strFile);

    /// Loads the results files among those that were dropped on the list.
    void lvwResults_OLEDragDrop(const QStringList& files);

private:
    using Failure = std::optional<RunTimeError>;

    [[nodiscard]] QString ListsFolder() const;
    void MakeListsFolder() const;
    [[nodiscard]] FileDialogSetup DialogSetup(const QString& title, const QString& fileName) const;
    void BringResultsToFront();
    void EndDialog(const Failure& failure, const QString& title);

    void SaveSteps();
    [[nodiscard]] QString LostRows() const;
    [[nodiscard]] bool MayWrite(const QString& strFile);
    void WriteRows(std::optional<ResultsWriter>& writer, const QString& strFile, bool& saved,
                   qint32& count);
    [[nodiscard]] QByteArray RowLine(int row) const;

    void LoadSteps();
    void BindList();

    WindowControls controls_;
    CurrentJob& job_;
    Services services_;
    SearchState& state_;
    ResultRows& rows_;
};

} // namespace netrove
