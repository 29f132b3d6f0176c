#pragma once

#include <functional>
#include <optional>

namespace netrove {

/// What keeps the window busy.
enum class JobKind { Search, Load, Save, Clear, Browse };

/// Whether a job of this kind takes long: it says in the status bar where it is, and the abort
/// button stops it.
[[nodiscard]] bool IsLong(JobKind kind);

/// Which job of the window runs, if any, and whether it is to stop. There is one at a time: a
/// second is refused, wherever in the first one's yields it is asked for. Widgets show this state
/// and are told of its changes; nobody reads it back from them.
///
/// For the thread of the window.
class CurrentJob {
public:
    /// The life of a job: whoever was given it runs, and the job ends with it.
    class Run {
    public:
        Run(Run&& other) noexcept : job_(other.job_) { other.job_ = nullptr; }
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;
        Run& operator=(Run&&) = delete;
        ~Run() { End(); }

        /// From now on the job is shown, until its end.
        void Show();
        void End();

        /// Whether Stop() has been called since the job began.
        [[nodiscard]] bool IsToStop() const { return job_ != nullptr && job_->isToStop_; }

    private:
        friend class CurrentJob;
        explicit Run(CurrentJob& job) : job_(&job) {}

        CurrentJob* job_; ///< null once it has ended
    };

    CurrentJob() = default;
    CurrentJob(const CurrentJob&) = delete;
    CurrentJob& operator=(const CurrentJob&) = delete;
    ~CurrentJob() = default;

    /// The user has pressed the abort button. A long job that begins takes it back, and so does
    /// nobody else: pressed while nothing runs, it stays.
    bool AbandonFlag = false;

    /// A job is shown from now on, or isn't any more.
    std::function<void(JobKind)> Shown;
    std::function<void(JobKind)> Hidden;

    /// Begins a job. Nothing where one runs.
    [[nodiscard]] std::optional<Run> Begin(JobKind kind);

    [[nodiscard]] bool IsRunning() const { return kind_.has_value(); }
    /// Whether a long job is shown.
    [[nodiscard]] bool IsLongShown() const { return isShown_ && IsLong(*kind_); }

    /// Whether what the running job waits for is to be given up. What is waited for outside a long
    /// job never is, whatever was pressed before.
    [[nodiscard]] bool GivesUpWaits() const { return AbandonFlag && IsLongShown(); }

    /// Asks the running job to stop at its next test, without the user's having aborted it: the
    /// window is to be closed.
    void Stop() { isToStop_ = IsRunning(); }

private:
    std::optional<JobKind> kind_;
    bool isShown_ = false;
    bool isToStop_ = false;
};

} // namespace netrove
