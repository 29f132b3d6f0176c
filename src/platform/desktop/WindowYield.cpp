#include "platform/desktop/WindowYield.h"

#include "runtime/Yield.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QScopedValueRollback>

#include <exception>
#include <utility>

namespace netrove {

namespace {

void ServeEvents(QEventLoop::ProcessEventsFlags flags) {
    try {
        QCoreApplication::processEvents(flags);
    } catch (const std::exception& failure) {
        qCritical("A handler failed during a pass of the event loop: %s", failure.what());
    }
}

} // namespace

WindowYield::WindowYield()
    : previousYield_(SetYieldPass([this] { YieldPass(); }))
    , previousWaiting_(SetWaitingPass([this] { WaitingPass(); })) {}

WindowYield::~WindowYield() {
    SetYieldPass(std::move(previousYield_));
    SetWaitingPass(std::move(previousWaiting_));
}

void WindowYield::YieldPass() const {
    if (!waiting_)
        ServeEvents(QEventLoop::AllEvents);
}

void WindowYield::WaitingPass() {
    if (waiting_)
        return;
    const QScopedValueRollback<bool> waiting(waiting_, true);
    // The flag for timers has X11 in its name for historical reasons; the Unix event dispatchers
    // all follow it.
    ServeEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers |
                QEventLoop::X11ExcludeTimers);
}

} // namespace netrove
