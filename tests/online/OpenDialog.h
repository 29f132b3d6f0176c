#pragma once

#include "desktop/WindowYield.h"
#include "fakes/DesktopFakes.h"
#include "fakes/Find.h"
#include "online/OnlineDialog.h"
#include "runtime/Yield.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QTest>
#include <QWindow>
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
            std::make_unique<Dialog>(OnlineServices{.http = &http,
                                                    .dialogs = dialogs,
                                                    .shell = shellServices,
                                                    .webAddress = Text("https://site.example/"),
                                                    .look = {.openHelp = [this] { ++helps; }},
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

    /// Presses the button, and lets the user act during the read that begins. Gives whether the
    /// read is to go on.
    bool ClickAndAct(const char* name, const std::function<void(QWindow&)>& act) {
        bool goesOn = true;
        bool hasActed = false;
        http.OnRead = [&] {
            if (std::exchange(hasActed, true))
                return;
            QMetaObject::invokeMethod(
                dialog.get(), [&] { act(*dialog->windowHandle()); }, Qt::QueuedConnection);
            QElapsedTimer clock; // the time that a mnemonic takes to press its button
            clock.start();
            while (goesOn && clock.elapsed() < 300)
                goesOn = WhileWaiting();
            if (!goesOn)
                throw RunTimeError(ErrorNumber::DeviceUnavailable);
        };
        Click(name);
        http.OnRead = {};
        QCoreApplication::processEvents();
        return goesOn;
    }
    /// What ends the dialog during a read and at any other time.
    void ExpectClosingEndsTheRead(const char* name, const char* cancel) {
        const std::function<void(QWindow&)> cases[] = {
            [](QWindow& window) { QTest::keyClick(&window, Qt::Key_Escape); },
            [](QWindow& window) { QTest::keyClick(&window, Qt::Key_C, Qt::AltModifier); },
            [](QWindow& window) { window.close(); },
            [&](QWindow& window) {
                const QPoint place = Button(cancel).geometry().center();
                QTest::mouseClick(&window, Qt::LeftButton, {}, place);
            }};
        for (const auto& close : cases) {
            Open();
            EXPECT_FALSE(ClickAndAct(name, close)) << &close - cases;
            EXPECT_FALSE(dialog->isVisible()) << &close - cases;
        }
        EXPECT_EQ(dialogs.Boxes(), "");
    }

    WindowYield yield;
    QWidget owner;
    RecordedDialogs dialogs;
    RecordedShell shell;
    ShellServices shellServices{shell, dialogs};
    RecordedHttp http;
    int helps = 0;
    std::unique_ptr<Dialog> dialog;
};

} // namespace netrove
