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
    WithAbandon = 1,    ///< switch it with the other controls
    WithoutAbandon = 2, ///< leave it as it is
};

/// What the window shows of the current job. While a job is shown, the controls that could start
/// another one, or change what it reads, are disabled; for a long job the abort button is enabled,
/// and the status bar says what kind of job it is.
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

    /// Follows `job` from now on. Both must have the same lifetime.
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
