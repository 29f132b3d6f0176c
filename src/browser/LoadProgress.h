#pragma once

#include <QString>

namespace netrove {

struct BrowserControls;

/// How far the load of a node's children has come, and the display of that. Each load has its own
/// object, so that another load that begins during a yield doesn't confuse the numbers.
class LoadProgress {
public:
    LoadProgress(BrowserControls& controls, qint32 nodesTotal)
        : controls_(controls), NodesTotal(nodesTotal) {}

    /// Sets the display to its state before anything is loaded.
    static void Reset(BrowserControls& controls);

    /// The text of the bar when all is loaded.
    [[nodiscard]] static QString FullBar();

    /// Counts the next child as being handled.
    void Advance() { ++NodesDone; }
    /// Shows the numbers at once.
    void Show();

private:
    BrowserControls& controls_;
    qint32 NodesTotal;
    qint32 NodesDone = 0;
};

} // namespace netrove
