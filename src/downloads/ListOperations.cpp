#include "downloads/ListOperations.h"

#include "downloads/DownloadRows.h"
#include "downloads/RowFiles.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"
#include "searchrun/ResultRows.h"
#include "services/WinVer.h"
#include "windowservices/SortListView.h"

#include <QClipboard>
#include <QGuiApplication>

namespace netrove {
namespace {

constexpr int SizeColumn = 3; ///< of both lists
constexpr int DateColumn = 4;
/// Higher codes of the shell mean success.
constexpr int LastShellFailure = 32;

/// The row that a menu refers to.
int CurrentRowOf(const ListView& list) {
    if (list.CurrentRow() == 0)
        throw RunTimeError(ErrorNumber::ObjectNotSet);
    return list.CurrentRow();
}

/// The error number of a state like "Error (53)".
qint32 ErrorNumberOf(const QString& status) {
    const qsizetype bracket = status.indexOf(u'(');
    return bracket < 0 ? 0 : LeadingLong(QStringView(status).mid(bracket + 1));
}

} // namespace

ListOperations::ListOperations(const WindowControls& controls, const DownloadsMenu& downloadsMenu,
                               const ResultsMenu& resultsMenu, CurrentJob& job,
                               const Services& services, DownloadQueue& queue)
    : controls_(controls)
    , downloadsMenu_(downloadsMenu)
    , resultsMenu_(resultsMenu)
    , job_(job)
    , services_(services)
    , queue_(queue) {
    SetDragContent(controls_.lvwResults);
    SetDragContent(controls_.lvwDownloads);
}

/// Only files with an address can be dragged: the others mean nothing to the program that they are
/// dropped on.
void ListOperations::SetDragContent(ListView& list) {
    list.SetDragContent([&list, &shell = services_.shell](const std::vector<int>& rows) {
        std::unique_ptr<QMimeData> files = RowFiles(list, rows, shell);
        return files->hasUrls() ? std::move(files) : nullptr;
    });
}

void ListOperations::CopyFiles(const ListView& list) {
    if (list.SelectedCount() > 0)
        QGuiApplication::clipboard()->setMimeData(
            RowFiles(list, list.SelectedRows(), services_.shell).release());
}

void ListOperations::lvwResults_ColumnClick(int column) {
    Sort(controls_.lvwResults, column, u"Error in Results Col Click"_s);
    controls_.window.unsetCursor();
}

void ListOperations::lvwDownloads_ColumnClick(int column) {
    Sort(controls_.lvwDownloads, column, u"Error in DL Col Click"_s);
}

void ListOperations::Sort(ListView& list, int column, const QString& failureTitle) {
    services_.dialogs.Trap(failureTitle, [&] {
        if (list.Count() == 0)
            return;
        const bool isResults = &list == &controls_.lvwResults;
        int compared = column;
        if (column == SizeColumn)
            compared = isResults ? ResultColumn::Size2 : DownloadItem::SizeKey + 1;
        else if (column == DateColumn)
            compared = isResults ? ResultColumn::Date2 : DownloadItem::DateKey + 1;
        SortListView(list, column, compared, false, services_.dialogs);
    });
}

void ListOperations::lvwDownloads_MouseDown(const QPoint& globalPosition) {
    services_.dialogs.Trap(u"Error in DL MouseDown"_s, [&] { ShowDownloadsMenu(globalPosition); });
}

void ListOperations::ShowDownloadsMenu(const QPoint& globalPosition) {
    const ListView& list = controls_.lvwDownloads;
    if (list.Count() == 0)
        return;
    const std::vector<int> selected = list.SelectedRows();
    downloadsMenu_.ClearMnu.setVisible(!selected.empty());
    DownloadName_ = list.Text(CurrentRowOf(list));
    bool isFailed = false;
    bool isDone = false;
    if (selected.size() == 1) {
        SelectedDownloadRow_ = selected.front();
        const QString status = list.SubItem(SelectedDownloadRow_, DownloadItem::Status);
        isFailed = status.contains("Error"_L1);
        isDone = !isFailed && status.contains("Done"_L1);
    }
    downloadsMenu_.mnuSep6.setVisible(isDone);
    downloadsMenu_.mnuSampleFileLoc.setVisible(isDone);
    downloadsMenu_.mnuSep8.setVisible(isFailed);
    downloadsMenu_.ErrDescMnu.setVisible(isFailed);
    downloadsMenu_.PopUp1Mnu.popup(globalPosition);
}

void ListOperations::lvwResults_MouseDown(const QPoint& globalPosition) {
    services_.dialogs.Trap(u"Error in Results MouseDown"_s,
                           [&] { ShowResultsMenu(globalPosition); });
    controls_.window.unsetCursor();
}

/// There is no menu for several selected rows.
void ListOperations::ShowResultsMenu(const QPoint& globalPosition) {
    const ListView& list = controls_.lvwResults;
    if (list.Count() == 0 || list.SelectedCount() > 1)
        return;
    const int row = CurrentRowOf(list);
    ResultLocation_ = list.SubItem(row, 1);
    ResultName_ = list.Text(row);
    resultsMenu_.mnuSampleFile.setText(FileExtension(ResultName_) == "MP3"_L1
                                           ? u"Sample MP3 Remotely"_s
                                           : u"Sample File Remotely"_s);
    if (isWinNT_)
        resultsMenu_.mnuTheWkGP.setText(WorkgroupCaption());
    resultsMenu_.PopUp2Mnu.popup(globalPosition);
}

QString ListOperations::WorkgroupCaption() const {
    const QStringList pieces = ResultLocation_.split(u'\\');
    if (pieces.size() <= 2)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    QString workgroup = Trim(GetWorkgroup(pieces.at(2), services_.network));
    if (workgroup.isEmpty())
        workgroup = u"??"_s;
    // A single ampersand would underline the letter after it.
    workgroup.replace(u'&', "&&"_L1);
    return u"Member of "_s + workgroup + u" Workgroup"_s;
}

void ListOperations::mnuViewFolder_Click(int index) {
    OpenFolder(services_.settings.SaveFolder, index == 0 ? u"Open"_s : u"Explore"_s);
}

void ListOperations::OpenFolder(const QString& path, const QString& verb) {
    int code = 0;
    try {
        Yield();
        controls_.window.setCursor(Qt::WaitCursor);
        if (services_.files.CanEnter(path))
            code = services_.shellServices.OpenFolder(path, verb);
    } catch (...) {
        code = 0;
    }
    controls_.window.unsetCursor();
    if (code > LastShellFailure)
        return;
    services_.dialogs.Message(MessageIcon::Critical, u"Failed to "_s + verb.toLower() + u' ' + path,
                              u"Folder Error..."_s);
}

void ListOperations::SampleFile(const QString& path) {
    controls_.window.setCursor(Qt::WaitCursor);
    services_.shellServices.ShellRun(path);
    controls_.window.unsetCursor();
}

void ListOperations::ErrDescMnu_Click() {
    qint32 number = 0;
    try {
        Yield();
        number = ErrorNumberOf(
            controls_.lvwDownloads.SubItem(SelectedDownloadRow_, DownloadItem::Status));
    } catch (...) {
        number = CurrentFailure().Number();
    }
    QString text = u"Error #"_s + QString::number(number) + u" - "_s + ErrorDescription(number);
    if (number == static_cast<qint32>(ErrorNumber::CannotCreateObject))
        text += u"\r\n(Re-installation of the application will usually solve this problem.)"_s;
    services_.dialogs.Message(MessageIcon::Information, text, u"Error Description"_s);
}

void ListOperations::cmdClearLst_Click() {
    std::optional<CurrentJob::Run> job = job_.Begin(JobKind::Clear);
    if (!job)
        return;
    services_.dialogs.Trap(u"Error in clearing"_s, [&] {
        controls_.window.setCursor(Qt::WaitCursor);
        job->Show();
        ClearLists();
    });
    controls_.lvwResults.setUpdatesEnabled(true);
    controls_.picListHolder.update();
    controls_.lvwResults.Refresh();
    controls_.window.unsetCursor();
}

void ListOperations::ClearLists() {
    Yield();
    controls_.lvwResults.setUpdatesEnabled(false);
    controls_.lvwResults.Clear();
    queue_.ClearAllMnu_Click();
    controls_.RetFileLbl.setText(u"---"_s);
    controls_.window.unsetCursor();
    const MessageAnswer answer = services_.dialogs.Message(
        MessageIcon::Question, u"Would you also like to clear the drop-down search list?"_s,
        u"Clear search list?"_s, MessageButtons::YesNo);
    if (answer != MessageAnswer::Yes)
        return;
    controls_.window.setCursor(Qt::WaitCursor);
    // Clears only the items: the typed text stays.
    const QString text = controls_.LstSearchFor.currentText();
    controls_.LstSearchFor.clear();
    controls_.LstSearchFor.setEditText(text);
}

} // namespace netrove
