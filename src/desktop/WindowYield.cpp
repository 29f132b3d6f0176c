#include "desktop/WindowYield.h"

#include "controls/DialogRead.h"
#include "controls/DisplayTimer.h"
#include "runtime/Yield.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QScopedValueRollback>

#include <utility>

namespace netrove {

WindowYield::WindowYield()
    : previousYield_(SetYieldPass([this] { YieldPass(); }))
    , previousWaiting_(SetWaitingPass([this] { return WaitingPass(); })) {}

WindowYield::~WindowYield() {
    SetYieldPass(std::move(previousYield_));
    SetWaitingPass(std::move(previousWaiting_));
}

void WindowYield::SetAbandon(QAbstractButton& button, std::function<bool()> isPressed) {
    input_.SetLiveButton(button);
    isAbandoned_ = std::move(isPressed);
}

void WindowYield::YieldPass() {
    if (waiting_)
        return;
    input_.Serve();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

bool WindowYield::WaitingPass() {
    if (!waiting_)
        ServeDisplay();
    const DialogRead* read = DialogRead::Current();
    return !(isAbandoned_ && isAbandoned_()) && !(read && read->IsGivenUp());
}

void WindowYield::ServeDisplay() {
    const QScopedValueRollback<bool> waiting(waiting_, true);
    input_.BeginHolding();
    DisplayTimer::FireDue();
    // The flag for timers has X11 in its name for historical reasons; all Unix event dispatchers
    // obey it.
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers |
                                    QEventLoop::X11ExcludeTimers);
    input_.EndHolding();
}

} // namespace netrove
