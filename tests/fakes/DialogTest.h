#pragma once

#include "desktop/WindowYield.h"
#include "fakes/DesktopFakes.h"
#include "fakes/Find.h"
#include "fakes/UseDialog.h"

#include <QTest>

#include <memory>

namespace netrove {

/// A dialog of the program, used with keys and mouse.
template <typename Dialog>
class DialogTest : public testing::Test {
protected:
    void TearDown() override { dialog.reset(); } // before what it works on

    /// Shows the dialog in place of the one before, and waits until it has the keyboard.
    void ShowDialog(std::unique_ptr<Dialog> made) {
        dialog = std::move(made);
        dialog->show();
        Activate();
    }
    void Activate() {
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }

    template <typename Object = QWidget>
    Object& Find(const char* name) {
        return FindIn<Object>(*dialog, name);
    }
    bool IsEnabled(const char* name) { return Find(name).isEnabled(); }
    bool IsShown(const char* name) { return Find(name).isVisible(); }
    void Click(const char* name) { QTest::mouseClick(&Find(name), Qt::LeftButton); }

    /// Has `open` put up a form over the dialog, uses it, and closes it if it is still there.
    template <typename Form>
    static void InForm(const std::function<void()>& open, const std::function<void(Form&)>& use) {
        const auto useAndClose = [&](Form& form) {
            use(form);
            if (form.isVisible())
                form.reject();
        };
        UseDialog<Form>(open, useAndClose, [](Form& form) {
            return form.focusWidget() && form.focusWidget()->hasFocus();
        });
    }

    RecordedDialogs dialogs;
    WindowYield yield;
    std::unique_ptr<Dialog> dialog;
};

} // namespace netrove
