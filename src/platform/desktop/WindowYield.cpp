#include "platform/desktop/WindowYield.h"

#include "runtime/Yield.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QScopedValueRollback>

#include <utility>

namespace netrove {

WindowYield::WindowYield()
    : previousYield_(SetYieldPass([this] { YieldPass(); }))
    , previousWaiting_(SetWaitingPass([this] {
        WaitingPass();
        return true;
    })) {}

WindowYield::~WindowYield() {
    SetYieldPass(std::move(previousYield_));
    SetWaitingPass(std::move(previousWaiting_));
}

void WindowYield::YieldPass() const {
    if (!waiting_)
        QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void WindowYield::WaitingPass() {
    if (waiting_)
        return;
    const QScopedValueRollback<bool> waiting(waiting_, true);
    // The flag for timers has X11 in its name for historical reasons; the Unix event dispatchers
    // all follow it.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                    QEventLoop::ExcludeSocketNotifiers |
                                    QEventLoop::X11ExcludeTimers);
    // Input that stays queued is out of GLib's sight until somebody wakes its dispatcher.
    QAbstractEventDispatcher::instance()->wakeUp();
}

} // namespace netrove
