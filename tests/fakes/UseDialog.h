#pragma once

#include <QApplication>
#include <QScopeGuard>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include <functional>

namespace netrove {

/// Has `open` put up a modal dialog, and lets the user act on it once it is ready. Gives what
/// `open` gives when the dialog has been closed.
template <typename Dialog, typename Open>
auto UseDialog(
    Open open, const std::function<void(Dialog&)>& use,
    const std::function<bool(Dialog&)>& isReady = [](Dialog& dialog) {
        return dialog.isVisible();
    }) {
    bool used = false;
    QTimer look;
    look.callOnTimeout([&] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (used || !dialog || !isReady(*dialog))
            return;
        used = true;
        use(*dialog);
    });
    look.start(5);
    const auto expectUsed = qScopeGuard([&] { EXPECT_TRUE(used); });
    return open();
}

} // namespace netrove
