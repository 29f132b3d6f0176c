#include "storage/ResultsFile.h"

#include "runtime/Formats.h"
#include "runtime/ProgramVersion.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"
#include "search/SearchSummary.h"
#include "services/FileDetails.h"
#include "services/Paths.h"
#include "storage/RowLoader.h"
#include "storage/results/ResultsFormat.h"
#include "storage/results/ResultsReader.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <array>

namespace netrove {
namespace {

/// Columns of a row that are saved: all but the file's type and extension.
constexpr std::size_t SavedColumns = 10;

/// Codes of the shell above this one mean success.
constexpr int LastFailureCode = 32;

qint64 Now() {
    return QDateTime::currentSecsSinceEpoch();
}

/// A sentence like "Saved 12 files in 5 seconds.", with the words that fit the case.
QString Summary(bool aborted, const QString& done, qint32 count, qint64 started) {
    return (aborted ? u"Aborted, but " + done.toLower() : done) + u' ' +
           FilesInSeconds(count, Now() - started);
}

} // namespace

QString ResultsFile::ListsFolder() const {
    return services_.applicationFolder + QDir::separator() + u"Lists"_s;
}

void ResultsFile::MakeListsFolder() const {
    if (!QDir().mkpath(ListsFolder()))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
}

void ResultsFile::BringResultsToFront() {
    job_.AbandonFlag = false;
    controls_.SSTab1.setCurrentIndex(0);
    MakeListsFolder();
}

FileDialogSetup ResultsFile::DialogSetup(const QString& title, const QString& fileName) const {
    return {.title = title,
            .filter = u"Netrove Results File (*.nrr)|*.nrr|All Files (*.*)|*.*"_s,
            .folder = ListsFolder(),
            .fileName = fileName};
}

void ResultsFile::EndDialog(const Failure& failure, const QString& title) {
    controls_.window.unsetCursor();
    controls_.window.setEnabled(true);
    services_.dialogs.Failure(failure, title);
    job_.AbandonFlag = false;
}

void ResultsFile::mnuSaveResFile_Click() {
    if (!job_.IsRunning())
        EndDialog(FailureOf([this] { SaveSteps(); }), u"Error in saving file"_s);
}

void ResultsFile::SaveSteps() {
    BringResultsToFront();
    if (controls_.lvwResults.Count() == 0) {
        services_.dialogs.Message(MessageIcon::Exclamation, u"There are no items to save."_s,
                                  u"Empty Results List"_s);
        return;
    }
    const QString name = FormatDate(QDateTime::currentDateTime(), u"YYYYMMDDHHNNSS"_s) + u".nrr";
    const auto file =
        services_.dialogs.SaveFile(DialogSetup(u"Save Netrove Results as..."_s, name));
    if (!file || Trim(*file).isEmpty() || !MayWrite(*file))
        return;
    bool saved = false;
    SaveResFile(*file, saved);
    if (saved)
        services_.dialogs.Message(MessageIcon::Information,
                                  u"The file has been written."_s + LostRows(),
                                  u"Netrove results file"_s);
}

/// A line that tells how many rows won't be loaded again; empty if all will.
QString ResultsFile::LostRows() const {
    const ListView& list = controls_.lvwResults;
    int lost = 0;
    for (int row = 1; row <= list.Count(); ++row) {
        if (!ResultsFormat::ComesBack(list.Text(row), list.SubItem(row, 1)))
            ++lost;
    }
    if (lost == 0)
        return {};
    return u"\r\nLoading it won't bring back " + QString::number(lost) + u" of the " +
           QString::number(list.Count()) + u" rows: a name or folder with a comma can't be read.";
}

/// Whether the file may be written: there is none, or the user has agreed and it has been removed.
bool ResultsFile::MayWrite(const QString& strFile) {
    if (!QFileInfo(strFile).isFile())
        return true;
    const MessageAnswer answer = services_.dialogs.Message(
        MessageIcon::Exclamation,
        strFile + u"\r\nThe file already exists.\r\nDo you want to overwrite it?",
        u"File already exists"_s, MessageButtons::YesNo);
    if (answer == MessageAnswer::Yes) {
        if (!QFile::remove(strFile))
            throw RunTimeError(ErrorNumber::PathFileAccessError);
        return true;
    }
    services_.dialogs.Message(MessageIcon::Information, u"The file was not generated."_s,
                              u"File write aborted"_s);
    return false;
}

void ResultsFile::SaveResFile(const QString& strFile, bool& saved) {
    saved = false;
    std::optional<CurrentJob::Run> job = job_.Begin(JobKind::Save);
    if (!job)
        return;
    const qint64 started = Now();
    qint32 count = 0;
    std::optional<ResultsWriter> writer;
    Failure failure = FailureOf([&] {
        job->Show();
        WriteRows(writer, strFile, saved, count);
    });
    controls_.RetFileLbl.setText(Summary(job_.AbandonFlag, u"Saved"_s, count, started));
    job->End();
    if (writer) {
        const Failure closing = FailureOf([&] { writer->Close(); });
        saved = saved && !closing;
        if (!failure)
            failure = closing;
    }
    services_.dialogs.Failure(failure, u"Error in dump-to-file"_s);
}

void ResultsFile::WriteRows(std::optional<ResultsWriter>& writer, const QString& strFile,
                            bool& saved, qint32& count) {
    writer.emplace(strFile);
    writer->WriteLine(ResultsFormat::Header(ProgramVersion(), QDateTime::currentDateTime()));
    const int rows = controls_.lvwResults.Count();
    int row = 1;
    for (; row <= rows && !job_.AbandonFlag; ++row) {
        writer->WriteLine(RowLine(row));
        ++count;
        controls_.RetFileLbl.setText(u"Save in progress. " + QString::number(count) +
                                     u" files saved.");
        Yield();
    }
    saved = row > rows;
}

QByteArray ResultsFile::RowLine(int row) const {
    std::array<QString, SavedColumns> fields;
    fields[0] = controls_.lvwResults.Text(row);
    for (std::size_t column = 1; column < fields.size(); ++column)
        fields[column] = controls_.lvwResults.SubItem(row, static_cast<int>(column));
    return ResultsFormat::Line(fields);
}

void ResultsFile::mnuLoadResFile_Click() {
    if (!job_.IsRunning())
        EndDialog(FailureOf([this] { LoadSteps(); }), u"Error in loading file"_s);
}

void ResultsFile::LoadSteps() {
    BringResultsToFront();
    const auto file =
        services_.dialogs.OpenFile(DialogSetup(u"Load Netrove Results..."_s, QString()));
    if (file && !Trim(*file).isEmpty())
        LoadResFile(*file);
}

void ResultsFile::LoadResFile(const QString& strFile) {
    std::optional<CurrentJob::Run> job = job_.Begin(JobKind::Load);
    if (!job)
        return;
    const qint64 started = Now();
    FailureOf([this] { BindList(); });
    job->Show();
    state_.FilesFound = controls_.lvwResults.Count();
    ResultsReader reader(strFile);
    if (!reader.Open())
        return;
    RowLoader loader(services_.files, services_.ahead, services_.settings, job_, state_, rows_);
    const qint32 loaded = loader.Load(reader);
    controls_.RetFileLbl.setText(Summary(job_.AbandonFlag, u"Loaded"_s, loaded, started) +
                                 u" (Max return is set to " +
                                 QString::number(services_.settings.MaxReturnFiles) + u')');
    FailureOf([this] { rows_.ReleaseAudioFile(); });
    controls_.lvwResults.Refresh();
}

void ResultsFile::BindList() {
    const Settings& settings = services_.settings;
    IconImages::BindIcons(controls_.lvwResults, controls_.icons, settings.ShowListIcons,
                          settings.ListIconType);
    controls_.lvwResults.Refresh();
    const QString heading = SizeHeading(settings.SizeFormat);
    controls_.lvwResults.SetHeaderText(ResultColumn::Size, heading);
    controls_.lvwDownloads.SetHeaderText(ResultColumn::Size, heading);
}

void ResultsFile::lvwResults_OLEDragDrop(const QStringList& files) {
    for (const QString& file : files) {
        Yield();
        if (job_.IsRunning() || !QFileInfo(file).isFile())
            continue;
        job_.AbandonFlag = false;
        if (FileExtension(file) == u"NRR")
            LoadResFile(file);
    }
}

void ResultsFile::mnuListsFol_Click(int index) {
    const bool explore = index == 1;
    const QString title =
        explore ? u"Error in exploring 'Lists' folder"_s : u"Error in opening 'Lists' folder"_s;
    services_.dialogs.Trap(title, [&] {
        MakeListsFolder();
        const int code = services_.shell.OpenFolder(ListsFolder() + QDir::separator(),
                                                    explore ? u"Explore"_s : u"Open"_s);
        // Without this the user would click the item and see nothing happen.
        if (code <= LastFailureCode)
            throw RunTimeError(ErrorNumber::PathFileAccessError);
    });
}

} // namespace netrove
