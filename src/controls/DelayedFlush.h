#pragma once

#include <QEvent>
#include <QTimer>

#include <functional>

namespace netrove {

/// When the screen follows the changes of a view: some hundredths of a second later, so that many
/// changes cost little, and always before what the user does next is served.
class DelayedFlush {
public:
    /// `flush` brings the screen up to date, and says Done() when it begins.
    explicit DelayedFlush(std::function<void()> flush);

    /// Something has changed.
    void Schedule();

    /// Nothing is left to do.
    void Done() { timer_.stop(); }

    /// Flushes now if the event is the user's: what he does is about what the view is now.
    void FlushBefore(const QEvent& event) const;

private:
    std::function<void()> flush_;
    QTimer timer_;
};

} // namespace netrove
