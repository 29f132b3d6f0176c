#pragma once

#include <QObject>
#include <QSessionManager>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace netrove {

/// Tells the program that the user's session ends, as reported by the session manager, by SIGTERM
/// or SIGHUP, or, at a terminal, by SIGINT. A second such signal ends the program as it would
/// without this.
///
/// For the thread of the windows; only one object may exist at a time. During a wait for the
/// network only isBusy and save are called.
class SessionEnd : public QObject {
    Q_OBJECT

public:
    struct Program {
        /// Whether a job runs that the session's end would break off.
        std::function<bool()> isBusy;
        /// Tells the user that the job has stopped the end of the session. Called only where the
        /// session manager lets the program talk to the user.
        std::function<void()> refuse;
        /// Saves what is to survive; the program goes on, as others may still stop the session's
        /// end.
        std::function<void()> save;
        /// Ends the program without asking, as nobody is there to answer.
        std::function<void()> end;
    };

    explicit SessionEnd(Program program);
    ~SessionEnd() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Commit(QSessionManager& manager);
    void Later(const std::function<void()>& work);
    void HearSignals();

    Program program_;
    std::unique_ptr<QSocketNotifier> signals_;
};

} // namespace netrove
