#include "controls/DisplayTimer.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

namespace netrove {

DisplayTimer::DisplayTimer() {
    all_.push_back(this);
}

DisplayTimer::~DisplayTimer() {
    std::erase(all_, this);
}

void DisplayTimer::FireDue() {
    const std::vector<DisplayTimer*> timers = all_;
    for (DisplayTimer* timer : timers)
        FireDueTimers(*timer);
}

void FireDueTimers(QObject& object) {
    QAbstractEventDispatcher& dispatcher = *QAbstractEventDispatcher::instance();
    const auto timers = dispatcher.registeredTimers(&object);
    for (const auto& timer : timers) {
        if (dispatcher.remainingTime(timer.timerId) != 0)
            continue;
        QTimerEvent event(timer.timerId);
        QCoreApplication::sendEvent(&object, &event);
    }
}

} // namespace netrove
