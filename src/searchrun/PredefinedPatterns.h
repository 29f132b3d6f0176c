#pragma once

#include "platform/Dialogs.h"
#include "settings/Settings.h"
#include "windowservices/WindowControls.h"

#include <QComboBox>
#include <QMenu>
#include <QWidget>

namespace netrove {

/// The menu of common search texts, at the picture beside the search text.
class PredefinedPatterns {
public:
    static constexpr int Count = 8; ///< items of the menu

    PredefinedPatterns(const WindowControls& controls, QMenu& mnuPopUp5, const Settings& settings,
                       Dialogs& dialogs)
        : controls_(controls), mnuPopUp5_(mnuPopUp5), settings_(settings), dialogs_(dialogs) {}

    /// The right button shows the menu at `position` (within the picture), after a warning if the
    /// patterns won't be enclosed in asterisks.
    void imgFiles_MouseDown(Qt::MouseButton button, const QPoint& position);

    /// Replaces the search text by that of a menu item, which is counted from 0.
    void mnuFiles_Click(int index);

    /// Selects the whole search text.
    void LstSearchFor_GotFocus();

private:
    WindowControls controls_;
    QMenu& mnuPopUp5_;
    const Settings& settings_;
    Dialogs& dialogs_;
};

} // namespace netrove
