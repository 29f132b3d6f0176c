#pragma once

#include <QObject>
#include <QTimer>

#include <vector>

namespace netrove {

/// A timer of a view: what it does brings the screen up to date and runs no handler of the program.
/// So it fires during waits for the network too, when all others are held back. For the thread of
/// the windows.
class DisplayTimer : public QTimer {
public:
    DisplayTimer();
    DisplayTimer(const DisplayTimer&) = delete;
    DisplayTimer& operator=(const DisplayTimer&) = delete;
    ~DisplayTimer() override;

    /// Fires those that are due, while nobody else does it.
    static void FireDue();

private:
    static inline std::vector<DisplayTimer*> all_;
};

/// Fires the object's own timers that are due, those inside Qt's widgets too. They must be ones
/// that fire once.
void FireDueTimers(QObject& object);

} // namespace netrove
