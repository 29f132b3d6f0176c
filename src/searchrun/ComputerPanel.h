#pragma once

#include "controls/StatusBar.h"

#include <QCoreApplication>

namespace netrove {

/// Shows in the third panel of the status bar how many of the computers a search still has before
/// it, with the one that it is at.
class ComputerPanel {
    Q_DECLARE_TR_FUNCTIONS(ComputerPanel)

public:
    explicit ComputerPanel(StatusBar& stbStatus) : stbStatus_(stbStatus) {}

    /// `known` counts the done ones too. Where there is but one, there is nothing to tell.
    void Show(int done, int known);
    void Clear();

private:
    StatusBar& stbStatus_;
};

} // namespace netrove
