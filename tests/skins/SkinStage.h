#pragma once

#include "fakes/DesktopFakes.h"
#include "fakes/Find.h"
#include "fakes/UseDialog.h"
#include "skins/SkinFakes.h"
#include "skins/SkinSelection.h"

#include <QMainWindow>
#include <QMenu>
#include <QTemporaryDir>

namespace netrove {

/// A window with the controls and the menu that a skin is selected for, over a settings file.
class SkinStage : public testing::Test {
protected:
    SkinStage() { window.setObjectName(Text("main")); }

    template <typename Widget>
    Widget* Make(QWidget* parent = nullptr) {
        return new Widget(parent ? parent : &window);
    }

    SkinSelection::Menu MakeMenu() {
        SkinSelection::Menu made{};
        for (QAction*& item : made.mnuSkin)
            item = menu.addAction(QString());
        made.mnuSkinCust = menu.addAction(QString());
        return made;
    }

    SkinSelection::Controls MakeControls() {
        SkinSelection::Controls made{};
        made.window = &window;
        made.chkRecurse = Make<QCheckBox>();
        made.Label1 = Make<QLabel>();
        made.Label2 = Make<QLabel>();
        made.HyperLbl = Make<QLabel>();
        made.HyperLbl->setProperty("Tag", Text("LINK"));
        for (QPushButton*& button : made.buttons)
            button = Make<QPushButton>();
        for (QFrame*& shape : made.RecShp)
            shape = Make<QFrame>();
        for (QFrame*& line : made.lines)
            line = Make<QFrame>();
        made.picListHolder = Make<QWidget>();
        made.SSTab1 = Make<QTabWidget>(made.picListHolder);
        made.SSTab1->addTab(new QWidget, Text("Results"));
        return made;
    }

    /// What the next start finds.
    void Store(const char* section, const char* key, const char* value) {
        profile.WriteIni(Text(section), Text(key), Text(value));
    }
    void Store(const char* section, TextPairs entries) {
        for (const auto& [key, value] : entries)
            Store(section, key, value);
    }
    QString Stored(const char* section, const char* key) {
        return profile.ReadIni(Text(section), Text(key), Text("-"));
    }

    QTemporaryDir folder;
    ProfileFile profile{folder.filePath(Text("netrove.ini"))};
    RecordedDialogs dialogs;
    FrameLog frames;
    LoggedPainter painter;
    qint32 SkinIndex = 0;
    int helped = 0;
    QMainWindow window;
    QMenu menu;
    SkinSelection::Menu items = MakeMenu();
    SkinSelection::Controls controls = MakeControls();
    SkinSelection skins{items,
                        controls,
                        {.SkinIndex = SkinIndex,
                         .profile = profile,
                         .dialogs = dialogs,
                         .painter = painter,
                         .newModifier = [this] { return std::make_unique<LoggedFrame>(frames); },
                         .resize = [this] { frames.calls.append(Text("resize")); },
                         .openHelp = [this] { ++helped; }}};
};

} // namespace netrove
