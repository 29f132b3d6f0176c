#pragma once

#include "controls/FontSize.h"
#include "fakes/DesktopFakes.h"
#include "fakes/Find.h"
#include "fakes/UseDialog.h"
#include "options/frmAddNetNode.h"
#include "options/frmOpts.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace netrove {

/// The options dialog over a main window with two lists, used with keys and mouse.
class OpenOptions : public testing::Test {
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
        dialog = std::make_unique<frmOpts>(
            OptionServices{.settings = settings,
                           .dialogs = dialogs,
                           .system = system,
                           .lvwResults = *results,
                           .lvwDownloads = *downloads,
                           .downloadsFolder = folder.filePath(Text("Downloads/")),
                           .OSName = Text("TEST OS"),
                           .OSVersion = Text("1.2"),
                           .CurrentUser = Text("tester"),
                           .look = {.openHelp = [this] { ++helped; }}},
            &window);
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }

    template <typename Object>
    Object& Find(const char* name) {
        return FindIn<Object>(*dialog, name);
    }
    QString TextOf(const char* name) { return Find<QLineEdit>(name).text(); }
    void Enter(const char* name, const QString& text) { Find<QLineEdit>(name).setText(text); }
    bool IsOn(const char* name) { return Find<QAbstractButton>(name).isChecked(); }
    bool IsEnabled(const char* name) { return Find<QWidget>(name).isEnabled(); }
    ListView& List() { return Find<ListView>("lvwExcNetNode"); }

    /// Brings the control's page to the front and clicks the control.
    void Click(const char* name) {
        auto& control = Find<QAbstractButton>(name);
        auto& tabs = Find<QTabWidget>("SSTab1");
        for (int tab = 0; tab < tabs.count(); ++tab) {
            if (tabs.widget(tab)->isAncestorOf(&control))
                tabs.setCurrentIndex(tab);
        }
        const bool isOption = qobject_cast<QRadioButton*>(&control) != nullptr ||
                              qobject_cast<QCheckBox*>(&control) != nullptr;
        QTest::mouseClick(&control, Qt::LeftButton, {},
                          isOption ? QPoint(8, control.height() / 2) : control.rect().center());
    }

    QTemporaryDir folder;
    Settings settings;
    RecordedDialogs dialogs;
    TestSystem system;
    QWidget window;
    ListView* results = new ListView(&window);
    ListView* downloads = new ListView(&window);
    int helped = 0;
    std::unique_ptr<frmOpts> dialog;
};

} // namespace netrove
