#pragma once

#include "controls/StatusBar.h"
#include "searchrun/ComputerPanel.h"
#include "searchrun/job/CurrentJob.h"

#include <QAction>
#include <QWidget>

#include <vector>

namespace netrove {

/// What EnableButtons does with the abort button.
enum class EnType : qint16 {
    WithAbandon = 1,    ///< it goes with the other controls
    WithoutAbandon = 2, ///< it is left alone
};

/// What the window shows of the current job. While one is shown, the controls are off that could
/// start another or change what it reads; a long job has the abort button, and its word in the
/// status bar.
class JobDisplay {
public:
    struct Controls {
        std::vector<QAction*> fileItems; ///< of the File and Tools menus
        std::vector<QAction*> helpItems; ///< of the Help menu, the menu itself first
        QWidget& filesPicture;           ///< stands beside the search text while no job runs
        QWidget& busyPicture;            ///< stands in its place while one runs
        std::vector<QWidget*> inputs;
        QWidget& cmdAbandon;
        StatusBar& stbStatus;
    };

    /// Follows `job` from now on; both live as long as each other.
    JobDisplay(Controls controls, CurrentJob& job);
    JobDisplay(const JobDisplay&) = delete;
    JobDisplay& operator=(const JobDisplay&) = delete;
    ~JobDisplay() = default;

    /// Enables (true) or disables (false) the controls that could start a second job.
    void EnableButtons(bool bs, EnType enType);

private:
    void Show(JobKind kind);
    void Hide(JobKind kind);

    Controls controls_;
    ComputerPanel computers_;
};

} // namespace netrove
