#pragma once

#include "controls/ListView.h"
#include "controls/StatusBar.h"
#include "downloads/QueuedFiles.h"
#include "downloads/copier/CopyQ.h"
#include "platform/Dialogs.h"
#include "searchrun/job/CurrentJob.h"
#include "settings/Settings.h"

#include <QLabel>
#include <QObject>
#include <QPointer>
#include <QTabWidget>
#include <QTimer>

#include <functional>
#include <optional>

namespace netrove {

/// Copies selected results into the folder for downloads. The rows of lvwDownloads are the queue,
/// and the text of one column is a row's state; two timers check them.
///
/// Handlers yield, so that others can run in between. Therefore a walk over the rows never yields
/// (the longest list takes about a millisecond), and after a yield a row is looked up again by its
/// file, which no other row has, or by its copy's id.
class DownloadQueue : public QObject {
    Q_OBJECT

public:
    static constexpr int MaxRows = 32767;

    struct Controls {
        QWidget& window;
        QTabWidget& SSTab1;
        ListView& lvwResults;
        ListView& lvwDownloads;
        QLabel& DownloadLbl;
        StatusBar& stbStatus;
    };

    DownloadQueue(const Controls& controls, const Settings& settings, Dialogs& dialogs,
                  const CurrentJob& job);

    /// Sets the object that copies from now on. While there is none, or once it has been deleted,
    /// no copy can be started.
    void SetCopier(CopyQ* copier);

    /// Queues those of the selected results that have no row yet. Failures end in a message box.
    void lvwResults_DblClick();

    /// Starts the copy of a row, unless too many copies run or another start is in progress. Asks
    /// before a file is overwritten. A failure becomes the row's state.
    void DownLoadIt(qint16 itemIdx);

    /// Removes the selected rows, except those whose copy is running; these are deselected.
    /// Failures end in a message box.
    void ClearMnu_Click();
    /// Removes all rows except those whose copy is running.
    void ClearAllMnu_Click();

private:
    /// A file as its row names it.
    struct QueuedFile {
        QString location;
        QString name;
    };
    /// A selected row of lvwResults.
    struct Result {
        QueuedFile file;
        QString size;
        QString date;
        QString attributes;
        QString sizeKey;
        QString dateKey;
    };

    void CopyDLL_CopyDone(const QString& sIndexKey, int errorNumber);
    void DloadScanTmr_Timer();
    void EndTaken(const QString& id);
    void DloadQueueTmr_Timer();

    void QueueSelected();
    [[nodiscard]] std::vector<Result> SelectedResults() const;
    void AddRow(const Result& result);

    void Start(const QueuedFile& file);
    void HandOver(const QueuedFile& file, const QString& destination, CopyQ::Existing existing);
    [[nodiscard]] bool MayOverwrite(const QString& destination);

    void ShowProgress();
    void ShowInStatusBar(const QString& text);
    void Clear(const std::function<std::vector<int>()>& rowsToRemove);

    [[nodiscard]] QString Status(int row) const;
    [[nodiscard]] int CountRows(QLatin1String status) const;
    [[nodiscard]] int RowOf(const QueuedFile& file) const;
    [[nodiscard]] int RowOfCopy(const QString& id) const;
    void SetStatus(const QueuedFile& file, const QString& status);

    Controls controls_;
    const Settings& settings_;
    Dialogs& dialogs_;
    const CurrentJob& job_;
    QPointer<CopyQ> copier_;
    QueuedFiles queued_;
    QTimer* DloadScanTmr_;
    QTimer* DloadQueueTmr_;
    bool starting_ = false;
    QStringList taken_;        ///< the ids of copies whose target somebody else has made
    bool inStatusBar_ = false; ///< the status bar shows running copies
};

} // namespace netrove
