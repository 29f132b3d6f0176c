#include "desktop/SessionEnd.h"

#include <QEvent>
#include <QGuiApplication>
#include <QTimer>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace netrove {
namespace {

constexpr std::array Ends{SIGTERM, SIGHUP, SIGINT};

// The only thing that the signal handler may touch: the end of the pipe that it writes to.
volatile std::sig_atomic_t writeEnd = -1;

void RestoreDefaults() {
    for (const int signal : Ends)
        std::signal(signal, SIG_DFL);
}

void Receive(int /*signal*/) {
    const int kept = errno;
    RestoreDefaults();
    const char byte = 0;
    static_cast<void>(!write(writeEnd, &byte, 1));
    errno = kept;
}

/// A signal that was ignored when the program started stays ignored.
void Handle(int signal) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
        return;
    action = {};
    action.sa_handler = Receive;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

SessionEnd::SessionEnd(Program program) : program_(std::move(program)) {
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager& manager) { Commit(manager); }, Qt::DirectConnection);
    qGuiApp->installEventFilter(this);
    HearSignals();
}

SessionEnd::~SessionEnd() {
    if (!signals_)
        return;
    RestoreDefaults();
    close(static_cast<int>(signals_->socket()));
    close(std::exchange(writeEnd, -1));
}

/// Answers the session manager, which ends the program afterwards.
void SessionEnd::Commit(QSessionManager& manager) {
    if (program_.isBusy() && manager.allowsInteraction()) {
        manager.release();
        manager.cancel();
        Later(program_.refuse);
    } else {
        program_.save();
    }
}

/// Signals and the session manager may be heard during waits for the network, when no box could be
/// answered. Timers don't fire then.
void SessionEnd::Later(const std::function<void()>& work) {
    QTimer::singleShot(std::chrono::milliseconds(1), this, work);
}

/// Qt's own way to quit would close the windows, and let one of them refuse.
bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
    if (watched != qGuiApp || event->type() != QEvent::Quit)
        return QObject::eventFilter(watched, event);
    Later(program_.end);
    return true;
}

void SessionEnd::HearSignals() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writeEnd = ends[1];
    signals_ = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    connect(signals_.get(), &QSocketNotifier::activated, this, [this] {
        signals_->setEnabled(false);
        Later(program_.end);
    });
    for (const int signal : Ends)
        Handle(signal);
}

} // namespace netrove
