#pragma once

#include "controls/FontSize.h"
#include "fakes/DialogTest.h"
#include "options/frmAddNetNode.h"
#include "options/frmOpts.h"

#include <QTemporaryDir>

namespace netrove {

/// The options dialog over a main window with two lists.
class OpenOptions : public DialogTest<frmOpts> {
protected:
    OpenOptions() {
        settings.SaveFolder = folder.path();
        settings.DefaultNetNodes = {Text("Windows|True|Folder"), Text("WinNT|True|Folder"),
                                    Text("Temp|True|Folder"),
                                    Text("Temporary Internet Files|True|Folder")};
        settings.ExcNetNodes = settings.DefaultNetNodes;
        for (ListView* list : {results, downloads}) {
            QFont font(Text("Arial"));
            SetFontSize(font, 8);
            list->setFont(font);
        }
    }

    void Open() {
        ShowDialog(std::make_unique<frmOpts>(
            OptionServices{.settings = settings,
                           .dialogs = dialogs,
                           .system = system,
                           .lvwResults = *results,
                           .lvwDownloads = *downloads,
                           .downloadsFolder = folder.filePath(Text("Downloads/")),
                           .OSName = Text("TEST OS"),
                           .OSVersion = Text("1.2"),
                           .CurrentUser = Text("tester"),
                           .look = {.openHelp = [this] { ++helps; }}},
            &window));
    }

    QString TextOf(const char* name) { return Find<QLineEdit>(name).text(); }
    void Enter(const char* name, const QString& text) { Find<QLineEdit>(name).setText(text); }
    ListView& List() { return Find<ListView>("lvwExcNetNode"); }
    /// With the button's page in front, or behind another one.
    void Click(const char* name) { Find<QAbstractButton>(name).click(); }

    int helps = 0;
    QTemporaryDir folder;
    Settings settings;
    TestSystem system;
    QWidget window;
    ListView* results = new ListView(&window);
    ListView* downloads = new ListView(&window);
};

} // namespace netrove
