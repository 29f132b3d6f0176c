#pragma once

#include "controls/StatusBar.h"

#include <QCoreApplication>

namespace netrove {

/// The third panel of the status bar. During a search it shows how many computers are left,
/// including the current one; after the search, what the search hasn't seen of the network.
class ComputerPanel {
    Q_DECLARE_TR_FUNCTIONS(ComputerPanel)

public:
    static constexpr int Number = 3;

    /// The panel's present width is the one that it has during searches.
    explicit ComputerPanel(StatusBar& stbStatus)
        : stbStatus_(stbStatus), width_(stbStatus.MinWidth(Number)) {}

    /// `known` includes the computers that are done. Does nothing if there is only one.
    void Show(int done, int known);

    /// Shows what wasn't searched, until Clear(); the panel takes the room that it needs for that
    /// from the panel before it. A click on the panel shows the details.
    void Tell(const QString& notSearched);

    void Clear();

private:
    void SetWidth(int twips);

    StatusBar& stbStatus_;
    int width_;
};

} // namespace netrove
