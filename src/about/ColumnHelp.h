#pragma once

#include "about/frmColHelp.h"

#include <QMenu>
#include <QWidget>

namespace netrove {

/// The help for the columns of the two lists: a right click on a header offers it.
class ColumnHelp {
public:
    /// The lists by their numbers.
    static constexpr int lvwResults = 1;
    static constexpr int lvwDownloads = 2;

    ColumnHelp(QWidget& window, QMenu& PopUp3Mnu) : window_(window), PopUp3Mnu_(PopUp3Mnu) {}

    /// A right click on the header of that list, at this place of the screen. Columns are counted
    /// from 0; any number is accepted.
    void HeaderRightClick(int LV, int colNum, const QPoint& globalPosition);

    /// Shows the help that was offered last.
    void HelpColMnu_Click();

private:
    void ColHelp(int LV, int colNum, const QPoint& globalPosition);

    QWidget& window_;
    QMenu& PopUp3Mnu_;
    ColumnHelpText help_;
};

} // namespace netrove
