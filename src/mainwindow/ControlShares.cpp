#include "mainwindow/ControlShares.h"

#include "controls/NamedControls.h"
#include "runtime/SourceText.h"

namespace netrove {

QMenu& ControlShares::Menu(const char* name) const {
    return *menu_.Menu(Text(name));
}

QAction& ControlShares::Item(const char* name) const {
    return *menu_.Item(Text(name));
}

WindowControls ControlShares::Controls() const {
    return {.window = window_,
            .SSTab1 = *controls_.SSTab1,
            .picListHolder = *controls_.picListHolder,
            .lvwResults = *controls_.lvwResults,
            .lvwDownloads = *controls_.lvwDownloads,
            .RetFileLbl = *controls_.RetFileLbl,
            .DownloadLbl = *controls_.DownloadLbl,
            .LstSearchFor = *controls_.LstSearchFor,
            .chkRecurse = *controls_.chkRecurse,
            .imgFiles = *controls_.imgFiles[0],
            .txtSearchStart = *controls_.txtSearchStart,
            .cmdInpNetNode = *controls_.cmdInpNetNode,
            .stbStatus = *controls_.stbStatus,
            .icons = controls_.Icons()};
}

JobDisplay::Controls ControlShares::ForJobDisplay() const {
    return {.fileItems = menu_.Offered(
                {u"mnuSaveResFile"_s, u"mnuLoadResFile"_s, u"mnuLogon"_s, u"mnuOpts"_s}),
            .helpItems = menu_.Offered(
                {u"mnuHelp"_s, u"mnuCont"_s, u"UpdateMnu"_s, u"mnuDonate"_s, u"mnuAbout1"_s}),
            .filesPicture = *controls_.imgFiles[0],
            .busyPicture = *controls_.imgFiles[1],
            .inputs = {controls_.cmdSetSearchStart, controls_.cmdInpNetNode, controls_.LstSearchFor,
                       controls_.chkRecurse, controls_.cmdStartSearch, controls_.cmdClearLst},
            .cmdAbandon = *controls_.cmdAbandon,
            .stbStatus = *controls_.stbStatus};
}

DownloadQueue::Controls ControlShares::ForDownloads() const {
    return {.window = window_,
            .SSTab1 = *controls_.SSTab1,
            .lvwResults = *controls_.lvwResults,
            .lvwDownloads = *controls_.lvwDownloads,
            .DownloadLbl = *controls_.DownloadLbl,
            .stbStatus = *controls_.stbStatus};
}

ListOperations::DownloadsMenu ControlShares::DownloadsMenu() const {
    return {.PopUp1Mnu = Menu("PopUp1Mnu"),
            .ClearMnu = Item("ClearMnu"),
            .mnuSep6 = Item("mnuSep6"),
            .mnuSampleFileLoc = Item("mnuSampleFileLoc"),
            .mnuSep8 = Item("mnuSep8"),
            .ErrDescMnu = Item("ErrDescMnu")};
}

ListOperations::ResultsMenu ControlShares::ResultsMenu() const {
    return {.PopUp2Mnu = Menu("PopUp2Mnu"),
            .mnuTheWkGP = Item("mnuTheWkGP"),
            .mnuSampleFile = Item("mnuSampleFile")};
}

SettingsFile::Controls ControlShares::ForSettingsFile() const {
    return {.window = window_,
            .LstSearchFor = *controls_.LstSearchFor,
            .chkRecurse = *controls_.chkRecurse,
            .lvwResults = *controls_.lvwResults,
            .lvwDownloads = *controls_.lvwDownloads};
}

SkinSelection::Controls ControlShares::ForSkins() const {
    const auto& lines = controls_.Lne;
    return {.window = &window_,
            .chkRecurse = controls_.chkRecurse,
            .Label1 = controls_.Label1,
            .Label2 = controls_.Label2,
            .HyperLbl = controls_.HyperLbl,
            .buttons = {controls_.cmdAbandon, controls_.cmdSetSearchStart, controls_.cmdInpNetNode,
                        controls_.cmdStartSearch, controls_.cmdClearLst},
            .RecShp = controls_.RecShp,
            .lines = {lines[0], lines[1], lines[2], lines[3], lines[4], lines[5], controls_.Line1},
            .SSTab1 = controls_.SSTab1,
            .picListHolder = controls_.picListHolder};
}

SkinSelection::Menu ControlShares::SkinMenu() const {
    SkinSelection::Menu menu{.mnuSkin = {}, .mnuSkinCust = &Item("mnuSkinCust")};
    for (int index = 0; index <= SkinSelection::LastSkin; ++index)
        menu.mnuSkin[static_cast<size_t>(index)] =
            menu_.Item(ElementName("mnuSkin", static_cast<size_t>(index)));
    return menu;
}

} // namespace netrove
