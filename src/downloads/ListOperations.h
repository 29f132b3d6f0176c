#pragma once

#include "controls/ListView.h"
#include "downloads/DownloadQueue.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/NetworkEnumeration.h"
#include "platform/Shell.h"
#include "runtime/SourceText.h"
#include "searchrun/job/CurrentJob.h"
#include "services/Paths.h"
#include "services/ShellServices.h"
#include "settings/Settings.h"
#include "windowservices/WindowControls.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenu>

namespace netrove {

/// What the two lists of the main window do under the mouse and the keyboard: sorting, pop-up
/// menus, opening folders and files, copying and dragging, clearing. Failures end in message boxes.
class ListOperations {
public:
    /// The menu at lvwDownloads, and those of its items that come and go.
    struct DownloadsMenu {
        QMenu& PopUp1Mnu;
        QAction& ClearMnu;
        QAction& mnuSep6;
        QAction& mnuSampleFileLoc;
        QAction& mnuSep8;
        QAction& ErrDescMnu;
    };
    /// The menu at lvwResults, and those of its items whose captions change.
    struct ResultsMenu {
        QMenu& PopUp2Mnu;
        QAction& mnuTheWkGP;
        QAction& mnuSampleFile;
    };
    struct Services {
        NetworkEnumeration& network;
        FileAccess& files;
        Shell& shell;
        ShellServices& shellServices;
        Dialogs& dialogs;
        const Settings& settings;
    };

    ListOperations(const WindowControls& controls, const DownloadsMenu& downloadsMenu,
                   const ResultsMenu& resultsMenu, CurrentJob& job, const Services& services,
                   DownloadQueue& queue);

    /// Whether the network has workgroups, so that a computer's can be shown. Initially true.
    void SetIsWinNT(bool isWinNT) { isWinNT_ = isWinNT; }

    /// Sort by the clicked column, or by the hidden key that belongs to it.
    void lvwResults_ColumnClick(int column);
    void lvwDownloads_ColumnClick(int column);

    /// Show the menu for the current row, at this place of the screen. The one for results first
    /// asks the network for the computer's workgroup, and appears only when that has been answered.
    void lvwResults_MouseDown(const QPoint& globalPosition);
    void lvwDownloads_MouseDown(const QPoint& globalPosition);

    /// These three work on the row that the menu was shown for.
    void OpenFolMnu_Click() { OpenFolder(ResultLocation_, u"Open"_s); }
    void ExpFolMnu_Click() { OpenFolder(ResultLocation_, u"Explore"_s); }
    void mnuSampleFile_Click() { SampleFile(ResultLocation_ + ResultName_); }

    /// Shows the folder for downloads: index 0 opens it, any other explores it.
    void mnuViewFolder_Click(int index);
    /// Opens the copy, in that folder, of the row that the menu was shown for.
    void mnuSampleFileLoc_Click() {
        SampleFile(PathIn(services_.settings.SaveFolder, DownloadName_));
    }
    /// Tells what the error number of that row means.
    void ErrDescMnu_Click();

    /// Opens a folder with the verb "Open" or "Explore"; a message box reports a failure.
    void OpenFolder(const QString& path, const QString& verb);

    /// Puts the files of the selected rows on the clipboard, as paths and as addresses.
    void CopyFiles(const ListView& list);

    /// Empties both lists, except for running downloads, and asks whether to delete the earlier
    /// searches too. Does nothing while a job runs.
    void cmdClearLst_Click();

private:
    void Sort(ListView& list, int column, const QString& failureTitle);
    void ShowDownloadsMenu(const QPoint& globalPosition);
    void ShowResultsMenu(const QPoint& globalPosition);
    [[nodiscard]] QString WorkgroupCaption() const;
    void SampleFile(const QString& path);
    void ClearLists();
    void SetDragContent(ListView& list);

    WindowControls controls_;
    DownloadsMenu downloadsMenu_;
    ResultsMenu resultsMenu_;
    CurrentJob& job_;
    Services services_;
    DownloadQueue& queue_;
    bool isWinNT_ = true;
    QString ResultName_;
    QString ResultLocation_;
    QString DownloadName_;
    qint32 SelectedDownloadRow_ = 0;
};

} // namespace netrove
