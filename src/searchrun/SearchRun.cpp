#include "searchrun/SearchRun.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"
#include "search/NotSearchedText.h"
#include "search/SearchSummary.h"
#include "search/SearchText.h"
#include "searchrun/columns/AudioColumns.h"
#include "services/FileDetails.h"

#include <QDateTime>

namespace netrove {

void SearchRun::cmdStartSearch_Click() {
    std::optional<CurrentJob::Run> job = job_.Begin(JobKind::Search);
    if (!job)
        return;
    qint64 seconds = 0;
    try {
        const std::optional<qint64> elapsed = Run(*job);
        if (!elapsed)
            return;
        seconds = *elapsed;
    } catch (...) {
        ShowFailure(CurrentFailure());
    }
    GiveControlsBack(*job);
    WriteSummary(seconds);
    rows_.ReleaseAudioFile();
    RepaintWindow();
}

std::optional<qint64> SearchRun::Run(CurrentJob::Run& job) {
    SearchServices services = services_.search;
    services.reading = AudioColumns::Reading(services.settings.IncludeMP3Info);
    // Keeps the engine alive during its walk, whatever a handler does to state_.SearchEvt.
    const auto engine = std::make_shared<NWSearch>(services);
    state_.SearchEvt = engine;
    Yield();
    const qint64 started = QDateTime::currentSecsSinceEpoch();
    controls_.SSTab1.setCurrentIndex(0);
    const QString text = TakeSearchText();
    Yield();
    if (text.isEmpty()) {
        state_.SearchEvt.reset();
        RefuseEmptyText();
        return std::nullopt;
    }
    RememberSearchText(text);
    const QString patterns =
        services_.search.settings.AutoAsterisks ? SearchText::EncloseInAsterisks(text) : text;
    ParseExclusions();
    ClearResults();
    SetSizeHeaders();
    IconImages::BindIcons(controls_.lvwResults, controls_.icons,
                          services_.search.settings.ShowListIcons,
                          services_.search.settings.ListIconType);
    controls_.lvwResults.Refresh();
    job.Show();
    ConnectEngine(*engine);
    engine->SetRecurseFolders(controls_.chkRecurse.isChecked());
    engine->SetKeepResults(false);
    // A walk ignores requests to stop that came before its beginning, so test here.
    if (!job.IsToStop())
        engine->BeginSearch(patterns, state_.SearchStartNode);
    if (services_.report && engine->FoundNobody())
        services_.report->NoteNobody();
    return QDateTime::currentSecsSinceEpoch() - started;
}

QString SearchRun::TakeSearchText() {
    const QString text = SearchText::Strip(Trim(controls_.LstSearchFor.currentText()));
    controls_.LstSearchFor.setEditText(text);
    return text;
}

void SearchRun::RefuseEmptyText() {
    services_.dialogs.Message(MessageIcon::Information, u"No search parameters!"_s,
                              u"Null search input"_s);
    controls_.LstSearchFor.setFocus();
}

/// Puts a new text at the top of the earlier searches; one that is in the list keeps its place.
void SearchRun::RememberSearchText(const QString& text) {
    QComboBox& list = controls_.LstSearchFor;
    int item = 0;
    while (item < list.count() && list.itemText(item) != text)
        ++item;
    if (item == list.count()) {
        list.insertItem(0, text);
        item = 0;
    }
    list.setCurrentIndex(item);
    list.setEditText(text);
}

void SearchRun::ParseExclusions() {
    if (services_.search.settings.ExcludeNetNodes)
        services_.exclusions.ParseNetNodes(services_.search.settings);
    else
        services_.exclusions.TurnOff();
}

void SearchRun::ClearResults() {
    state_.FilesFound = 0;
    controls_.lvwResults.Clear();
    controls_.RetFileLbl.setText(u"---"_s);
    job_.AbandonFlag = false;
}

void SearchRun::SetSizeHeaders() {
    const QString heading = SizeHeading(services_.search.settings.SizeFormat);
    controls_.lvwResults.SetHeaderText(ResultColumn::Size, heading);
    controls_.lvwDownloads.SetHeaderText(ResultColumn::Size, heading);
}

void SearchRun::ConnectEngine(NWSearch& engine) {
    engine.ItemFound = [this](const QString& path) { rows_.SearchEvt_ItemFound(path); };
    engine.SearchUpdate = [this, &engine](const QString& path) {
        rows_.SearchEvt_SearchUpdate(path);
        if (engine.ReachedComputers() > 0)
            computers_.Show(engine.ReachedComputers() - 1, engine.KnownComputers());
    };
    if (services_.report)
        services_.report->Begin();
}

void SearchRun::ShowFailure(const RunTimeError& error) {
    services_.dialogs.Message(MessageIcon::Critical,
                              u"Error while processing request.\r\n"_s +
                                  QString::number(error.Number()) + u"\r\n"_s +
                                  ErrorDescription(error.Number()),
                              u"Error while searching"_s);
}

void SearchRun::GiveControlsBack(CurrentJob::Run& job) {
    job.End();
    computers_.Tell(services_.report ? NotSearchedText(*services_.report) : QString());
    state_.SearchEvt.reset();
}

void SearchRun::WriteSummary(qint64 seconds) {
    controls_.RetFileLbl.setText(SearchSummary(job_.AbandonFlag, state_.FilesFound, seconds,
                                               services_.search.settings.MaxReturnFiles));
}

void SearchRun::RepaintWindow() {
    controls_.lvwResults.Refresh();
    controls_.stbStatus.update();
    controls_.window.update();
}

void SearchRun::cmdAbandon_Click() {
    if (state_.SearchEvt)
        state_.SearchEvt->Abandon();
    job_.AbandonFlag = true;
}

} // namespace netrove
