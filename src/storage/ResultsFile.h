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

/// Saves the rows of the results list to a file, and brings them back. The file tells where files
/// were seen: loading asks for each of them, and makes its row anew.
class ResultsFile {
public:
    struct Services {
        FileAccess& files;
        ReadAhead* ahead; ///< null where nobody reads ahead
        const Settings& settings;
        Dialogs& dialogs;
        ShellServices& shell;
        QString applicationFolder; ///< without a closing separator
    };

    ResultsFile(const WindowControls& controls, CurrentJob& job, const Services& services,
                SearchState& state, ResultRows& rows)
        : controls_(controls), job_(job), services_(services), state_(state), rows_(rows) {}

    /// Let the user choose a file, then save or load; nothing while a job runs. Failures end in a
    /// message box.
    void mnuSaveResFile_Click();
    void mnuLoadResFile_Click();

    /// Shows the folder of results files: 0 opens, 1 explores it.
    void mnuListsFol_Click(int index);

    /// Writes all rows to the file, which is replaced at the end. `saved` becomes true only when
    /// every row was written. Nothing is written while a job runs. After an abort the file has the
    /// rows so far; a failure, which is told in a box, can leave the earlier file.
    void SaveResFile(const QString& strFile, bool& saved);

    /// Adds a row for each file of the results file that is still there; none while a job
    /// runs. No failure is told.
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
