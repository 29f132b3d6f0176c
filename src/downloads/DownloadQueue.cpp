#include "downloads/DownloadQueue.h"

#include "downloads/DownloadRows.h"
#include "downloads/copier/TargetName.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"
#include "services/Paths.h"
#include "windowservices/RowStyle.h"

#include <QFileInfo>
#include <QLocale>
#include <QScopedValueRollback>

#include <cmath>

namespace netrove {
namespace {

constexpr int ScanInterval = 750;  ///< milliseconds
constexpr int QueueInterval = 250; ///< milliseconds
constexpr int DownloadsTab = 1;
constexpr quint32 DoneColor = 0x00FF00;
constexpr quint32 ErrorColor = 0x0000FF; ///< red is in the low byte

constexpr QLatin1String Pending("Pending");
constexpr QLatin1String Downloading("Downloading");
constexpr QLatin1String Done("Done!");
constexpr QLatin1String NotOverwritten("No O/W");

QString ErrorStatus(int number) {
    return u"Error ("_s + QString::number(number) + u')';
}

QTimer* NewTimer(const QString& name, int interval, QObject& parent) {
    auto* timer = new QTimer(&parent);
    timer->setObjectName(name);
    timer->setInterval(interval);
    return timer;
}

/// Hidden files count, and so do links, wherever they lead. A folder doesn't: the copier refuses
/// it.
bool FileExists(const QString& path) {
    const QFileInfo info(path);
    return info.isSymLink() || (info.exists() && !info.isDir());
}

ListModel::Progress RowProgress(const CopyProgress& copy) {
    const double share =
        copy.length > 0 ? static_cast<double>(copy.copied) / static_cast<double>(copy.length) : 0;
    return {.share = share,
            .note = QString::number(static_cast<int>(std::floor(share * 100))) + u" %, "_s +
                    QLocale().formattedDataSize(copy.bytesPerSecond, 1,
                                                QLocale::DataSizeTraditionalFormat) +
                    u"/s"_s};
}

} // namespace

DownloadQueue::DownloadQueue(const Controls& controls, const Settings& settings, Dialogs& dialogs,
                             const CurrentJob& job)
    : controls_(controls)
    , settings_(settings)
    , dialogs_(dialogs)
    , job_(job)
    , queued_(controls.lvwDownloads)
    , DloadScanTmr_(NewTimer(u"DloadScanTmr"_s, ScanInterval, controls_.lvwDownloads))
    , DloadQueueTmr_(NewTimer(u"DloadQueueTmr"_s, QueueInterval, controls_.lvwDownloads)) {
    connect(DloadScanTmr_, &QTimer::timeout, this, [this] { DloadScanTmr_Timer(); });
    connect(DloadQueueTmr_, &QTimer::timeout, this, [this] { DloadQueueTmr_Timer(); });
}

void DownloadQueue::SetCopier(CopyQ* copier) {
    copier_ = copier;
    // Queued, so that the id is in its row before any completion, and so that the handling of a
    // completion may release the copier.
    if (!copier)
        return;
    connect(
        copier, &CopyQ::CopyDone, this,
        [this](const QString& key, int number) { CopyDLL_CopyDone(key, number); },
        Qt::QueuedConnection);
    connect(
        copier, &CopyQ::TargetTaken, this, [this](const QString& key) { taken_.append(key); },
        Qt::QueuedConnection);
}

void DownloadQueue::lvwResults_DblClick() {
    const auto failure = FailureOf([this] { QueueSelected(); });
    // What was queued before a failure is copied too.
    if (controls_.lvwDownloads.Count() > 0) {
        for (QTimer* timer : {DloadScanTmr_, DloadQueueTmr_}) {
            if (!timer->isActive())
                timer->start();
        }
    }
    controls_.window.unsetCursor();
    dialogs_.Failure(failure, u"Error in Results Col DblClick"_s);
}

void DownloadQueue::QueueSelected() {
    Yield();
    const std::vector<Result> results = SelectedResults();
    const Result* added = nullptr;
    for (const Result& result : results) {
        Yield();
        if (queued_.Contains(result.file.location, result.file.name))
            continue;
        if (settings_.SwitchToDloadTab)
            controls_.SSTab1.setCurrentIndex(DownloadsTab);
        AddRow(result);
        added = &result;
    }
    if (const int row = added ? RowOf(added->file) : 0; row != 0)
        controls_.lvwDownloads.EnsureVisible(row);
    if (!results.empty())
        controls_.lvwDownloads.Refresh();
}

/// The results' texts, not their row numbers: these change when the list is sorted meanwhile.
std::vector<DownloadQueue::Result> DownloadQueue::SelectedResults() const {
    const ListView& list = controls_.lvwResults;
    std::vector<Result> results;
    results.reserve(static_cast<std::size_t>(list.SelectedCount()));
    for (const int row : list.SelectedRows())
        results.push_back({{list.SubItem(row, 1), list.Text(row)},
                           list.SubItem(row, 2),
                           list.SubItem(row, 3),
                           list.SubItem(row, 4),
                           list.SubItem(row, 8),
                           list.SubItem(row, 9)});
    return results;
}

void DownloadQueue::AddRow(const Result& result) {
    ListView& list = controls_.lvwDownloads;
    if (list.Count() >= MaxRows)
        throw RunTimeError(ErrorNumber::Overflow);
    const int row = list.Add(result.file.name);
    list.SetSubItem(row, DownloadItem::Location, result.file.location);
    list.SetSubItem(row, DownloadItem::Size, result.size);
    list.SetSubItem(row, DownloadItem::Date, result.date);
    list.SetSubItem(row, DownloadItem::Attributes, result.attributes);
    list.SetSubItem(row, DownloadItem::Status, Pending);
    list.SetSubItem(row, DownloadItem::SizeKey, result.sizeKey);
    list.SetSubItem(row, DownloadItem::DateKey, result.dateKey);
    queued_.NoteAdded(result.file.location, result.file.name);
}

void DownloadQueue::DloadScanTmr_Timer() {
    Yield();
    if (!taken_.isEmpty() && !starting_) {
        EndTaken(taken_.takeFirst());
        return;
    }
    for (int row = 1; row <= controls_.lvwDownloads.Count(); ++row) {
        if (Status(row) == Pending) {
            DownLoadIt(static_cast<qint16>(row));
            return;
        }
    }
}

void DownloadQueue::DownLoadIt(qint16 itemIdx) {
    // While a start yields or asks, its row is still pending: a second start would take the row
    // again.
    if (starting_)
        return;
    const QScopedValueRollback<bool> starting(starting_, true);
    const ListView& list = controls_.lvwDownloads;
    if (itemIdx < 1 || itemIdx > list.Count())
        return;
    const QueuedFile file{list.SubItem(itemIdx, DownloadItem::Location), list.Text(itemIdx)};
    try {
        Start(file);
    } catch (...) {
        SetStatus(file, ErrorStatus(CurrentFailure().Number()));
    }
}

void DownloadQueue::Start(const QueuedFile& file) {
    Yield();
    if (CountRows(Downloading) > settings_.MaxConcurrentDownloads)
        return;
    // The name comes from the network: joined to a folder, it must not lead out of it.
    CheckTargetName(file.name);
    const QString destination = PathIn(settings_.SaveFolder, file.name);
    const bool isTaken = FileExists(destination);
    if (isTaken && !MayOverwrite(destination)) {
        SetStatus(file, NotOverwritten);
        return;
    }
    // The row may have been cleared meanwhile.
    if (RowOf(file) == 0)
        return;
    SetStatus(file, Downloading);
    controls_.lvwDownloads.Refresh();
    Yield();
    HandOver(file, destination, isTaken ? CopyQ::Existing::Replace : CopyQ::Existing::Keep);
    Yield();
}

void DownloadQueue::HandOver(const QueuedFile& file, const QString& destination,
                             CopyQ::Existing existing) {
    if (!copier_)
        throw RunTimeError(ErrorNumber::CannotCreateObject);
    const QString id = copier_->QueueCopy(file.location + file.name, destination, existing);
    if (const int row = RowOf(file); row != 0)
        controls_.lvwDownloads.SetSubItem(row, DownloadItem::CopyID, id);
    controls_.lvwDownloads.Refresh();
}

/// A file with the target's name has appeared while the copy was made, so the user hasn't been
/// asked about it yet. The copy is complete, and needs only its name.
void DownloadQueue::EndTaken(const QString& id) {
    const ListView& list = controls_.lvwDownloads;
    const int row = RowOfCopy(id);
    if (row == 0)
        return;
    const QScopedValueRollback<bool> starting(starting_, true);
    const QueuedFile file{list.SubItem(row, DownloadItem::Location), list.Text(row)};
    try {
        const QString destination = PathIn(settings_.SaveFolder, file.name);
        if (MayOverwrite(destination))
            HandOver(file, destination, CopyQ::Existing::Replace);
        else
            SetStatus(file, NotOverwritten);
    } catch (...) {
        SetStatus(file, ErrorStatus(CurrentFailure().Number()));
    }
}

bool DownloadQueue::MayOverwrite(const QString& destination) {
    return dialogs_.Message(MessageIcon::Exclamation,
                            destination + u"\r\nThe file already exists. "
                                          "Overwrite it?"_s,
                            u"Overwrite file?..."_s, MessageButtons::YesNo) == MessageAnswer::Yes;
}

void DownloadQueue::CopyDLL_CopyDone(const QString& sIndexKey, int errorNumber) {
    ListView& list = controls_.lvwDownloads;
    if (list.Count() == 0)
        return;
    Yield();
    const int row = sIndexKey.isEmpty() ? 0 : RowOfCopy(sIndexKey);
    if (row == 0)
        return;
    list.SetProgress(row, DownloadItem::Status, std::nullopt);
    const bool failed = errorNumber != 0;
    list.SetSubItem(row, DownloadItem::Status, failed ? ErrorStatus(errorNumber) : QString(Done));
    SetRowStyle(list, row, failed ? ErrorColor : DoneColor, false);
}

void DownloadQueue::DloadQueueTmr_Timer() {
    Yield();
    const int count = CountRows(Pending);
    controls_.DownloadLbl.setText(QString::number(count) + (count == 1 ? u" file"_s : u" files"_s) +
                                  u" in queue to be downloaded."_s);
    ShowProgress();
}

void DownloadQueue::ShowProgress() {
    if (!copier_)
        return;
    ListView& list = controls_.lvwDownloads;
    CopyProgress all;
    QStringList names;
    for (int row = 1; row <= list.Count(); ++row) {
        if (Status(row) != Downloading)
            continue;
        const auto copy = copier_->Progress(list.SubItem(row, DownloadItem::CopyID));
        list.SetProgress(row, DownloadItem::Status,
                         copy ? std::optional(RowProgress(*copy)) : std::nullopt);
        if (copy) {
            names.append(list.Text(row));
            all.copied += copy->copied;
            all.length += copy->length;
            all.bytesPerSecond += copy->bytesPerSecond;
        }
    }
    if (names.isEmpty())
        ShowInStatusBar(QString());
    else
        ShowInStatusBar(
            (names.size() == 1 ? names.first() : QString::number(names.size()) + u" downloads"_s) +
            u": "_s + RowProgress(all).note);
}

/// Does nothing while a job shows its progress there.
void DownloadQueue::ShowInStatusBar(const QString& text) {
    if (job_.IsLongShown() || (text.isEmpty() && !inStatusBar_))
        return;
    controls_.stbStatus.SetText(2, text);
    inStatusBar_ = !text.isEmpty();
}

void DownloadQueue::ClearMnu_Click() {
    Clear([this] {
        ListView& list = controls_.lvwDownloads;
        std::vector<int> rows;
        for (const int row : list.SelectedRows()) {
            if (Status(row) == Downloading)
                list.SetSelected(row, false);
            else
                rows.push_back(row);
        }
        return rows;
    });
}

void DownloadQueue::ClearAllMnu_Click() {
    Clear([this] {
        std::vector<int> rows;
        for (int row = 1; row <= controls_.lvwDownloads.Count(); ++row) {
            if (Status(row) != Downloading)
                rows.push_back(row);
        }
        return rows;
    });
}

void DownloadQueue::Clear(const std::function<std::vector<int>()>& rowsToRemove) {
    try {
        Yield();
        controls_.lvwDownloads.RemoveRows(rowsToRemove());
        controls_.lvwDownloads.Refresh();
    } catch (...) {
        dialogs_.Message(MessageIcon::Critical, u"Error while clearing item!"_s,
                         u"Error while clearing"_s);
    }
}

QString DownloadQueue::Status(int row) const {
    return controls_.lvwDownloads.SubItem(row, DownloadItem::Status);
}

int DownloadQueue::CountRows(QLatin1String status) const {
    int count = 0;
    for (int row = 1; row <= controls_.lvwDownloads.Count(); ++row) {
        if (Status(row) == status)
            ++count;
    }
    return count;
}

int DownloadQueue::RowOf(const QueuedFile& file) const {
    const ListView& list = controls_.lvwDownloads;
    for (int row = 1; row <= list.Count(); ++row) {
        if (list.Text(row) == file.name &&
            list.SubItem(row, DownloadItem::Location) == file.location)
            return row;
    }
    return 0;
}

int DownloadQueue::RowOfCopy(const QString& id) const {
    const ListView& list = controls_.lvwDownloads;
    for (int row = 1; row <= list.Count(); ++row) {
        if (Trim(list.SubItem(row, DownloadItem::CopyID)) == id)
            return row;
    }
    return 0;
}

/// Sets the status of the file's row, if that still exists, and removes its progress: no copy of
/// the file is running.
void DownloadQueue::SetStatus(const QueuedFile& file, const QString& status) {
    const int row = RowOf(file);
    if (row == 0)
        return;
    controls_.lvwDownloads.SetProgress(row, DownloadItem::Status, std::nullopt);
    controls_.lvwDownloads.SetSubItem(row, DownloadItem::Status, status);
}

} // namespace netrove
