#pragma once

#include "fakes/DesktopFakes.h"
#include "fakes/Find.h"
#include "online/OnlineServices.h"

#include <QDialog>
#include <QTest>
#include <gtest/gtest.h>

namespace netrove {

/// A dialog of version 0.99.5 over a web site in memory, used with the mouse.
template <typename Dialog>
class OpenDialog : public testing::Test {
protected:
    void Open() {
        owner.setGeometry(100, 100, 900, 600);
        owner.show();
        dialog =
            std::make_unique<Dialog>(OnlineServices{.http = http,
                                                    .dialogs = dialogs,
                                                    .shell = shellServices,
                                                    .webAddress = Text("https://site.example/"),
                                                    .openHelp = [this] { ++helps; },
                                                    .version = {{0, 99, 5}}},
                                     &owner);
        dialog->open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }

    QPushButton& Button(const char* name) { return FindIn<QPushButton>(*dialog, name); }
    void Click(const char* name) { QTest::mouseClick(&Button(name), Qt::LeftButton); }

    void Page(const char* path, const char* text) {
        http.Pages.insert(Text("https://site.example/files/") + Text(path), Text(text));
    }

    QWidget owner;
    RecordedDialogs dialogs;
    RecordedShell shell;
    ShellServices shellServices{shell, dialogs};
    RecordedHttp http;
    int helps = 0;
    std::unique_ptr<Dialog> dialog;
};

} // namespace netrove
