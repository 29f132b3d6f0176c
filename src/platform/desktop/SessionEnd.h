#pragma once

#include <QObject>
#include <QSessionManager>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace netrove {

/// Tells the program that the user's session ends: by the session manager, by SIGTERM or SIGHUP,
/// or, at a terminal, by SIGINT. A second such signal ends the program as it would without this.
///
/// For the thread of the windows, and one object at a time. Nothing is told during waits.
class SessionEnd : public QObject {
    Q_OBJECT

public:
    struct Program {
        /// Whether a job runs that the session's end would break off.
        std::function<bool()> isBusy;
        /// Asked where a job runs and the session manager lets the program speak to its user:
        /// false stops the end of the session.
        std::function<bool()> agrees;
        /// Saves what is to survive; the program goes on, as others may still stop the end.
        std::function<void()> save;
        /// Ends the program. Nobody is there to be asked.
        std::function<void()> end;
    };

    explicit SessionEnd(Program program);
    ~SessionEnd() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Commit(QSessionManager& manager) const;
    void HearSignals();

    Program program_;
    std::unique_ptr<QSocketNotifier> signals_;
};

} // namespace netrove
