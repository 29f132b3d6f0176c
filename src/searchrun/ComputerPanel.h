#pragma once

#include "controls/StatusBar.h"

#include <QCoreApplication>

namespace netrove {

/// The third panel of the status bar: how many of the computers a search still has before it, with
/// the one that it is at, and after it what it hasn't seen of the network.
class ComputerPanel {
    Q_DECLARE_TR_FUNCTIONS(ComputerPanel)

public:
    static constexpr int Number = 3;

    /// The panel has the width that it is to have during searches.
    explicit ComputerPanel(StatusBar& stbStatus)
        : stbStatus_(stbStatus), width_(stbStatus.MinWidth(Number)) {}

    /// `known` counts the done ones too. Where there is but one, there is nothing to tell.
    void Show(int done, int known);

    /// Shows what wasn't searched, until Clear(); the panel takes what room it needs for that from
    /// the one before it. A click on it leads further.
    void Tell(const QString& notSearched);

    void Clear();

private:
    void SetWidth(int twips);

    StatusBar& stbStatus_;
    int width_;
};

} // namespace netrove
