#include "mainwindow/MenuConnections.h"

#include "controls/NamedControls.h"
#include "runtime/SourceText.h"

namespace netrove {
namespace {

/// Users without such a file never see the item.
void OfferSkinFile(const MainMenu& menu, const SkinSelection& skins) {
    QAction* item = menu.Item(u"mnuSkinFile"_s);
    item->setVisible(skins.HasSkinFile());
    item->setEnabled(skins.SkinConfiguration() != nullptr);
    menu.Item(u"mnuSepSkinFile"_s)->setVisible(item->isVisible());
}

} // namespace

QStringList MenuConnections::Withheld(const ProgramServices& services) {
    QStringList items;
    if (!services.report)
        items.append(u"mnuSilent"_s);
    if (!services.showLogons)
        items.append(u"mnuLogon"_s);
    if (!services.http)
        items.append({u"UpdateMnu"_s, u"mnuDonate"_s});
    return items;
}

void MenuConnections::Connect(const char* name, const std::function<void()>& work) {
    menu_.Connect(Text(name), &context_, work);
}

void MenuConnections::Connect(const char* name, std::initializer_list<int> indices,
                              const std::function<void(int)>& work) {
    for (const int index : indices)
        menu_.Connect(ElementName(name, static_cast<size_t>(index)), &context_,
                      [work, index] { work(index); });
}

void MenuConnections::ConnectFileMenu(ResultsFile& resultsFile,
                                      const std::function<void()>& unload) {
    Connect("mnuSaveResFile", [&resultsFile] { resultsFile.mnuSaveResFile_Click(); });
    Connect("mnuLoadResFile", [&resultsFile] { resultsFile.mnuLoadResFile_Click(); });
    Connect("mnuListsFol", {0, 1},
            [&resultsFile](int index) { resultsFile.mnuListsFol_Click(index); });
    Connect("mnuExit1", unload);
}

void MenuConnections::ConnectToolsMenu(ToolsMenu& tools) {
    Connect("mnuViewTrLog", [&tools] { tools.mnuViewTrLog_Click(); });
    Connect("mnuSilent", [&tools] { tools.mnuSilent_Click(); });
    Connect("mnuLogon", [&tools] { tools.mnuLogon_Click(); });
    Connect("mnuOpts", [&tools] { tools.mnuOpts_Click(); });
}

void MenuConnections::ConnectSkinMenu(SkinSelection& skins, ToolsMenu& tools) {
    Connect("mnuSkin", {0, 1, 2, 3, 4, 5}, [&skins, &tools](int index) {
        skins.mnuSkin_Click(static_cast<qint16>(index));
        tools.FollowSkin();
    });
    Connect("mnuSkinCust", [&skins] { skins.mnuSkinCust_Click(); });
    Connect("mnuSkinFile", [&skins] { skins.LoadSkinXML(); });
    // It stays disabled until a skin is selected.
    menu_.Item(u"mnuSkinCust"_s)->setEnabled(false);
    QObject::connect(menu_.Menu(u"mnuSkinTOP"_s), &QMenu::aboutToShow, &context_,
                     [&menu = menu_, &skins] { OfferSkinFile(menu, skins); });
}

void MenuConnections::ConnectHelpMenu(HelpMenu& help) {
    Connect("mnuCont", [&help] { help.mnuCont_Click(); });
    Connect("mnuTBS", [&help] { help.mnuTBS_Click(); });
    Connect("UpdateMnu", [&help] { help.UpdateMnu_Click(); });
    Connect("mnuDonate", [&help] { help.mnuDonate_Click(); });
    Connect("mnuAbout1", [&help] { help.mnuAbout1_Click(); });
}

void MenuConnections::ConnectDownloadsMenu(ListOperations& lists, DownloadQueue& queue) {
    Connect("ClearMnu", [&queue] { queue.ClearMnu_Click(); });
    Connect("ClearAllMnu", [&queue] { queue.ClearAllMnu_Click(); });
    Connect("mnuViewFolder", {0, 1}, [&lists](int index) { lists.mnuViewFolder_Click(index); });
    Connect("mnuSampleFileLoc", [&lists] { lists.mnuSampleFileLoc_Click(); });
    Connect("ErrDescMnu", [&lists] { lists.ErrDescMnu_Click(); });
}

void MenuConnections::ConnectResultsMenu(ListOperations& lists, DownloadQueue& queue) {
    Connect("mnuDownload", [&queue] { queue.lvwResults_DblClick(); });
    Connect("OpenFolMnu", [&lists] { lists.OpenFolMnu_Click(); });
    Connect("ExpFolMnu", [&lists] { lists.ExpFolMnu_Click(); });
    Connect("mnuSampleFile", [&lists] { lists.mnuSampleFile_Click(); });
    // It only informs, but is enabled to be as readable as the others.
    menu_.Item(u"mnuTheWkGP"_s)->setEnabled(true);
}

void MenuConnections::ConnectHeaderMenu(ColumnHelp& columnHelp) {
    Connect("HelpColMnu", [&columnHelp] { columnHelp.HelpColMnu_Click(); });
}

void MenuConnections::ConnectTrayMenu(SysTray& tray, HelpMenu& help) {
    Connect("mnuRestore", [&tray] { tray.mnuRestore_Click(); });
    Connect("mnuMax", [&tray] { tray.mnuMax_Click(); });
    Connect("mnuMin", [&tray] { tray.mnuMin_Click(); });
    Connect("mnuAbout", [&help] { help.mnuAbout_Click(); });
    Connect("mnuExit", [&tray] { tray.mnuExit_Click(); });
}

void MenuConnections::ConnectPatternsMenu(PredefinedPatterns& patterns) {
    Connect("mnuFiles", {0, 1, 2, 3, 4, 5, 6, 7},
            [&patterns](int index) { patterns.mnuFiles_Click(index); });
}

void MenuConnections::ConnectStartNodeMenu(SearchStart& start) {
    Connect("mnuInpNetNode", {0, 1, 3}, [&start](int index) { start.mnuInpNetNode_Click(index); });
}

} // namespace netrove
