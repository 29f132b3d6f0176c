#pragma once

#include <QObject>
#include <QTimer>

#include <vector>

namespace netrove {

/// A timer of a view: what it does brings the screen up to date and runs no handler of the program.
/// So it fires even during waits for the network, when all other timers are held back. For the
/// thread of the windows.
class DisplayTimer : public QTimer {
public:
    DisplayTimer();
    DisplayTimer(const DisplayTimer&) = delete;
    DisplayTimer& operator=(const DisplayTimer&) = delete;
    ~DisplayTimer() override;

    /// Fires the display timers that are due, while the event loop fires no timers.
    static void FireDue();

private:
    static inline std::vector<DisplayTimer*> all_;
};

/// Fires the object's own timers that are due, including those inside Qt's widgets. They must be
/// single-shot timers.
void FireDueTimers(QObject& object);

} // namespace netrove
