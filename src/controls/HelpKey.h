#pragma once

#include <QKeyEvent>

#include <functional>

namespace netrove {

/// Opens the help for the key F1, as all dialogs do. False for another key, and where there's no
/// help.
inline bool OpensHelp(const QKeyEvent& event, const std::function<void()>& openHelp) {
    if (event.key() != Qt::Key_F1 || !openHelp)
        return false;
    openHelp();
    return true;
}

} // namespace netrove
