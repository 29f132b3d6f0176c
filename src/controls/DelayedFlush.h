#pragma once

#include "controls/DisplayTimer.h"

#include <QAbstractScrollArea>

#include <functional>

namespace netrove {

/// Decides when the screen follows the changes of a view: some hundredths of a second later, so
/// that many changes cost little, and always before the user's next input is served. This works
/// even during waits for the network.
class DelayedFlush : public QObject {
public:
    /// `flush` brings the view's screen up to date, and says Done() when it begins.
    DelayedFlush(QAbstractScrollArea& view, std::function<void()> flush);

    /// Something has changed.
    void Schedule();

    /// Nothing is left to do.
    void Done() { timer_.stop(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> flush_;
    DisplayTimer timer_;
};

} // namespace netrove
