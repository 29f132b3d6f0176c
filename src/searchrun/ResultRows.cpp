#include "searchrun/ResultRows.h"

#include "controls/Twips.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"
#include "services/CompactPath.h"
#include "windowservices/WindowGeometry.h"

namespace netrove {
namespace {

/// Twips of the status bar's middle panel that are taken off for its borders.
constexpr int PanelBorders = 100;

} // namespace

void ResultRows::SearchEvt_ItemFound(const QString& netPath) {
    Add(netPath, FileDetails(netPath, files_, settings_));
}

void ResultRows::AddFile(const QString& netPath, const FileInfo& info) {
    Add(netPath, FileDetails(netPath, info, settings_));
}

void ResultRows::Add(const QString& netPath, const FileDetails& details) {
    if (Trim(details.Folder).isEmpty())
        return;
    ++state_.FilesFound;
    if (state_.FilesFound > settings_.MaxReturnFiles) {
        --state_.FilesFound;
        if (state_.SearchEvt)
            state_.SearchEvt->Abandon();
        return;
    }
    const IconItem added = icons_.AddIconItem(
        controls_.lvwResults, controls_.icons.picIconSm, controls_.icons.imgSysIconsSm, netPath,
        details.FileName, settings_.ShowFileTypes, settings_.ShowListIcons, settings_.ListIconType);
    FillRow(added.row, details, added.extension, added.typeName);
    controls_.RetFileLbl.setText(u"Search in progress. "_s + QString::number(state_.FilesFound) +
                                 u" files found."_s);
    controls_.RetFileLbl.repaint();
}

void ResultRows::FillRow(int row, const FileDetails& details, const QString& extension,
                         const QString& typeName) {
    ListView& list = controls_.lvwResults;
    list.SetSubItem(row, 1, details.Folder);
    list.SetSubItem(row, 2, details.SizeText);
    list.SetSubItem(row, 3, details.DateText);
    list.SetSubItem(row, 4, details.AttrText);
    const AudioTexts audio = audio_.Texts(details.Folder, details.FileName, extension, details.Info,
                                          settings_.IncludeMP3Info);
    list.SetSubItem(row, 5, audio.Length);
    list.SetSubItem(row, 6, audio.Bitrate);
    list.SetSubItem(row, 7, audio.Frequency);
    list.SetSubItem(row, 8, details.SizeKey);
    list.SetSubItem(row, 9, details.DateKey);
    list.SetSubItem(row, 10, typeName);
    list.SetSubItem(row, 11, extension);
}

void ResultRows::SearchEvt_SearchUpdate(const QString& netPath) {
    const int width = ToPixels(controls_.stbStatus.MinWidth(2) - PanelBorders);
    controls_.stbStatus.SetText(2, CompactPath(netPath, width, TextWidthIn(controls_.stbStatus)));
    Yield();
}

} // namespace netrove
