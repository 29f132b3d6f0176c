#pragma once

#include <functional>
#include <optional>

namespace netrove {

/// What keeps the window busy.
enum class JobKind { Search, Load, Save, Clear, Browse };

/// Whether a job of this kind takes long: then it shows its progress in the status bar, and the
/// abort button stops it.
[[nodiscard]] bool IsLong(JobKind kind);

/// Which job of the window runs, if any, and whether it is to stop. There is one at a time: while
/// one runs, a second one, asked for in one of its yields, is refused. Widgets show this state and
/// are told of its changes; it is never read back from them.
///
/// To be used on the window's thread only.
class CurrentJob {
public:
    /// The life of a job: the job runs while this object exists, or until End().
    class Run {
    public:
        Run(Run&& other) noexcept : job_(other.job_) { other.job_ = nullptr; }
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;
        Run& operator=(Run&&) = delete;
        ~Run() { End(); }

        /// Shows the job from now on until its end.
        void Show();
        void End();

        /// Whether Stop() has been called since the job began.
        [[nodiscard]] bool IsToStop() const { return job_ != nullptr && job_->isToStop_; }

    private:
        friend class CurrentJob;
        explicit Run(CurrentJob& job) : job_(&job) {}

        CurrentJob* job_; ///< null once the job has ended
    };

    CurrentJob() = default;
    CurrentJob(const CurrentJob&) = delete;
    CurrentJob& operator=(const CurrentJob&) = delete;
    ~CurrentJob() = default;

    /// The user has pressed the abort button. Stays set, even if nothing runs, until it is cleared:
    /// by the beginning of a long job, and by the ends of the commands that load and save results.
    bool AbandonFlag = false;

    /// Raised when a job begins to be shown, and when it is no longer shown.
    std::function<void(JobKind)> Shown;
    std::function<void(JobKind)> Hidden;

    /// Begins a job. Returns nothing if one runs already.
    [[nodiscard]] std::optional<Run> Begin(JobKind kind);

    [[nodiscard]] bool IsRunning() const { return kind_.has_value(); }
    /// Whether a long job is shown.
    [[nodiscard]] bool IsLongShown() const { return isShown_ && IsLong(*kind_); }

    /// Whether the running job's waits are to be given up. Waits outside a long job never are,
    /// whatever was pressed before.
    [[nodiscard]] bool GivesUpWaits() const { return AbandonFlag && IsLongShown(); }

    /// Asks the running job to stop at its next test because the window is to be closed, not
    /// because the user has aborted it.
    void Stop() { isToStop_ = IsRunning(); }

private:
    std::optional<JobKind> kind_;
    bool isShown_ = false;
    bool isToStop_ = false;
};

} // namespace netrove
