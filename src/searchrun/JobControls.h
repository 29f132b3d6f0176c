#pragma once

#include <QAction>
#include <QWidget>

#include <vector>

namespace netrove {

/// Which button is left to the caller of EnableButtons.
enum class JobKind : qint16 {
    Browsing = 1,  ///< the abort button goes with the others
    Abortable = 2, ///< the caller sets the abort button itself
};

/// The controls that could start a second job or change what a running one reads. Switching them
/// off is the whole guard against it: while a job yields, every other handler may run.
struct JobControls {
    std::vector<QAction*> fileItems; ///< of the File and Tools menus
    std::vector<QAction*> helpItems; ///< of the Help menu, the menu itself first
    QWidget* filesPicture = nullptr; ///< stands beside the search text while no job runs
    QWidget* busyPicture = nullptr;  ///< stands in its place while one runs
    std::vector<QWidget*> inputs;
    QWidget* cmdAbandon = nullptr;

    /// Enables (true) or disables (false) them all.
    void EnableButtons(bool enabled, JobKind kind) const;
};

} // namespace netrove
