#include "searchrun/SearchRun.h"

#include "mainwindow/services/FileDetails.h"
#include "runtime/RunTimeError.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"
#include "search/SearchSummary.h"
#include "search/SearchText.h"
#include "searchrun/columns/AudioColumns.h"

#include <QDateTime>

namespace netrove {

void SearchRun::cmdStartSearch_Click() {
    SearchServices services = services_.search;
    services.reading = AudioColumns::Reading(services.settings.IncludeMP3Info);
    state_.SearchEvt = std::make_shared<NWSearch>(services);
    qint64 seconds = 0;
    try {
        const std::optional<qint64> elapsed = Run();
        if (!elapsed)
            return;
        seconds = *elapsed;
    } catch (...) {
        ShowFailure(CurrentFailure());
    }
    GiveControlsBack();
    WriteSummary(seconds);
    rows_.ReleaseAudioFile();
    RepaintWindow();
}

std::optional<qint64> SearchRun::Run() {
    Yield();
    const qint64 started = QDateTime::currentSecsSinceEpoch();
    controls_.SSTab1.setCurrentIndex(0);
    const QString text = TakeSearchText();
    Yield();
    if (text.isEmpty()) {
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
    DisableButtons();
    controls_.stbStatus.SetText(1, QStringLiteral("Searching..."));
    ConnectEngine();
    // The engine lives as long as its walk, whatever a handler does to the reference.
    const std::shared_ptr<NWSearch> engine = state_.SearchEvt;
    engine->SetRecurseFolders(controls_.chkRecurse.isChecked());
    engine->BeginSearch(patterns, state_.SearchStartNode);
    return QDateTime::currentSecsSinceEpoch() - started;
}

QString SearchRun::TakeSearchText() {
    const QString text = SearchText::Strip(Trim(controls_.LstSearchFor.currentText()));
    controls_.LstSearchFor.setEditText(text);
    return text;
}

void SearchRun::RefuseEmptyText() {
    services_.dialogs.Message(MessageIcon::Information, QStringLiteral("No search parameters!"),
                              QStringLiteral("Null search input"));
    controls_.LstSearchFor.setFocus();
}

/// Puts a new text at the top of the earlier searches; one that stands there stays where it is.
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
    controls_.RetFileLbl.setText(QStringLiteral("---"));
    state_.AbandonFlag = false;
}

void SearchRun::SetSizeHeaders() {
    const QString heading = SizeHeading(services_.search.settings.SizeFormat);
    controls_.lvwResults.SetHeaderText(ResultColumn::Size, heading);
    controls_.lvwDownloads.SetHeaderText(ResultColumn::Size, heading);
}

void SearchRun::DisableButtons() {
    jobControls_.EnableButtons(false, JobKind::Abortable);
    controls_.cmdAbandon.setEnabled(true);
    controls_.cmdAbandon.setFocus();
}

void SearchRun::ConnectEngine() {
    state_.SearchEvt->ItemFound = [this](const QString& path) { rows_.SearchEvt_ItemFound(path); };
    state_.SearchEvt->SearchUpdate = [this](const QString& path) {
        rows_.SearchEvt_SearchUpdate(path);
        if (state_.SearchEvt->ReachedComputers() > 0)
            computers_.Show(state_.SearchEvt->ReachedComputers() - 1,
                            state_.SearchEvt->KnownComputers());
    };
    if (services_.report)
        services_.report->Begin();
}

void SearchRun::ShowFailure(const RunTimeError& error) {
    services_.dialogs.Message(MessageIcon::Critical,
                              QStringLiteral("Error while processing request.\r\n") +
                                  QString::number(error.Number()) + QStringLiteral("\r\n") +
                                  error.Description(),
                              QStringLiteral("Error while searching"));
}

void SearchRun::GiveControlsBack() {
    controls_.cmdAbandon.setEnabled(false);
    jobControls_.EnableButtons(true, JobKind::Abortable);
    controls_.stbStatus.SetText(1, QStringLiteral("Idle"));
    controls_.stbStatus.SetText(2, QString());
    controls_.stbStatus.SetToolTipText(2, QString());
    computers_.Clear();
    state_.SearchEvt.reset();
}

void SearchRun::WriteSummary(qint64 seconds) {
    controls_.RetFileLbl.setText(SearchSummary(state_.AbandonFlag, state_.FilesFound, seconds,
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
    state_.AbandonFlag = true;
}

} // namespace netrove
