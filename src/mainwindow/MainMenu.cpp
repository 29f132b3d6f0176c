#include "mainwindow/MainMenu.h"

#include "runtime/RunTimeError.h"

#include <QMenu>

#include <span>

namespace netrove {
namespace {

constexpr auto Separator = "-";

struct ItemText {
    const char* name;
    const char* caption;
};

struct MenuText {
    const char* name;
    const char* caption; ///< empty for a pop-up menu
    std::span<const ItemText> items;
};

// The blanks at the end of captions widen their menus.
// clang-format off
constexpr ItemText FileItems[] = {
    {"mnuSaveResFile", "&Save Results to File..."},
    {"mnuLoadResFile", "&Load Results File..."},
    {"mnuSep11", Separator},
    {"mnuListsFol(0)", "&Open 'Lists' Folder..."},
    {"mnuListsFol(1)", "Explo&re 'Lists' Folder..."},
    {"mnuSep13", Separator},
    {"mnuExit1", "E&xit     "},
};
constexpr ItemText ToolsItems[] = {
    {"mnuViewTrLog", "View &Troubleshooting Log File"},
    {"mnuSilent", "&Computers That Didn't Answer..."},
    {"mnuSep3", Separator},
    {"mnuLogon", "Network &Logon..."},
    {"mnuOpts", "&Options...     "},
};
constexpr ItemText SkinItems[] = {
    {"mnuSkin(0)", "&None"},
    {"mnuSkin(1)", "&Trek"},
    {"mnuSkin(2)", "&Serenity"},
    {"mnuSkin(3)", "&J.I.L.L."},
    {"mnuSkin(4)", "&Metropolis"},
    {"mnuSkin(5)", "&Bullethead"},
    {"mnuSep", Separator},
    {"mnuSkinCust", "&Customize..."},
    {"mnuSepSkinFile", Separator},
    {"mnuSkinFile", "&Load Skin File"},
};
constexpr ItemText HelpItems[] = {
    {"mnuCont", "Help &Content..."},
    {"mnuSep1", Separator},
    {"mnuTBS", "&Tarn Bridge Software on the Web..."},
    {"UpdateMnu", "Check for &Update..."},
    {"mnuDonate", "&Donate..."},
    {"mnuSep2", Separator},
    {"mnuAbout1", "&About Netrove..."},
};
constexpr ItemText DownloadsItems[] = {
    {"ClearMnu", "Clear Selected"},
    {"ClearAllMnu", "Clear All"},
    {"mnuSep7", Separator},
    {"mnuViewFolder(0)", "Open Downloads Folder"},
    {"mnuViewFolder(1)", "Explore Downloads Folder"},
    {"mnuSep6", Separator},
    {"mnuSampleFileLoc", "Sample File Locally"},
    {"mnuSep8", Separator},
    {"ErrDescMnu", "Error Description"},
};
constexpr ItemText ResultsItems[] = {
    {"mnuDownload", "Download"},
    {"sep1", Separator},
    {"OpenFolMnu", "Open Folder"},
    {"ExpFolMnu", "Explore Folder"},
    {"mnuSep9", Separator},
    {"mnuTheWkGP", "Member of x Workgroup"},
    {"sep2", Separator},
    {"mnuSampleFile", "Sample File Remotely"},
};
constexpr ItemText HeaderItems[] = {
    {"HelpColMnu", "Help with this Column?"},
};
constexpr ItemText TrayItems[] = {
    {"mnuRestore", "&Restore"},
    {"mnuSep4", Separator},
    {"mnuMax", "Maximize"},
    {"mnuMin", "Minimize"},
    {"mnuSep5", Separator},
    {"mnuAbout", "&About Netrove"},
    {"mnuExit", "E&xit"},
};
constexpr ItemText PatternItems[] = {
    {"mnuFiles(0)", "MPEG Audio (MP3)"},
    {"mnuFiles(1)", "Other Audio"},
    {"mnuFiles(2)", "Video"},
    {"mnuFiles(3)", "Pictures"},
    {"mnuFiles(4)", "Executables"},
    {"mnuFiles(5)", "Office Documents"},
    {"mnuFiles(6)", "Compressed Files"},
    {"mnuFiles(7)", "All Files"},
};
constexpr ItemText StartNodeItems[] = {
    {"mnuInpNetNode(0)", "Input a Workstation"},
    {"mnuInpNetNode(1)", "Input a Workgroup"},
    {"mnuInpNetNode(2)", Separator},
    {"mnuInpNetNode(3)", "Set to Network Root"},
};

constexpr MenuText MenuTexts[] = {
    {"mnuFile", "&File", FileItems},
    {"mnuTools", "&Tools", ToolsItems},
    {"mnuSkinTOP", "S&kin", SkinItems},
    {"mnuHelp", "&Help", HelpItems},
    {"PopUp1Mnu", "", DownloadsItems},
    {"PopUp2Mnu", "", ResultsItems},
    {"PopUp3Mnu", "", HeaderItems},
    {"PopUp4Mnu", "", TrayItems},
    {"mnuPopUp5", "", PatternItems},
    {"mnuPopUp6", "", StartNodeItems},
};
// clang-format on

} // namespace

MainMenu::MainMenu(QMenuBar& bar, QWidget& window, QStringList withheld)
    : QObject(&window), withheld_(std::move(withheld)) {
    for (const MenuText& text : MenuTexts) {
        const QString name = QString::fromLatin1(text.name);
        const QString caption = QString::fromLatin1(text.caption);
        const bool isPopUp = caption.isEmpty();
        QMenu* menu = AddMenu(name, caption, isPopUp ? &window : static_cast<QWidget*>(&bar));
        if (!isPopUp)
            bar.addMenu(menu);
        for (const ItemText& item : text.items)
            AddItem(*menu, QString::fromLatin1(item.name), QString::fromLatin1(item.caption));
    }
}

QMenu* MainMenu::AddMenu(const QString& name, const QString& caption, QWidget* parent) {
    auto* menu = new QMenu(caption, parent);
    menu->setObjectName(name);
    menu->setToolTipsVisible(true);
    menus_.insert(name, menu);
    return menu;
}

void MainMenu::AddItem(QMenu& menu, const QString& name, const QString& caption) {
    QAction* item =
        caption == QLatin1String(Separator) ? menu.addSeparator() : menu.addAction(caption);
    item->setObjectName(name);
    item->setEnabled(false);
    items_.insert(name, item);
}

QAction* MainMenu::Item(const QString& name) const {
    if (QAction* item = items_.value(name))
        return item;
    if (const QMenu* menu = menus_.value(name))
        return menu->menuAction();
    throw RunTimeError(ErrorNumber::KeyNotFound);
}

QMenu* MainMenu::Menu(const QString& name) const {
    if (QMenu* menu = menus_.value(name))
        return menu;
    throw RunTimeError(ErrorNumber::KeyNotFound);
}

void MainMenu::Connect(const QString& name, const QObject* context, std::function<void()> work) {
    if (withheld_.contains(name))
        return;
    QAction* item = Item(name);
    connect(item, &QAction::triggered, context, std::move(work));
    item->setEnabled(true);
}

std::vector<QAction*> MainMenu::Offered(const QStringList& names) const {
    std::vector<QAction*> items;
    for (const QString& name : names) {
        if (!withheld_.contains(name))
            items.push_back(Item(name));
    }
    return items;
}

} // namespace netrove
