#pragma once

#include <QString>

namespace netrove {

struct BrowserControls;

/// How far the load of a node's children has come, and the display of that. Each load has one of
/// its own, so that a load inside another, which a yield lets in, doesn't confuse its numbers.
class LoadProgress {
public:
    LoadProgress(BrowserControls& controls, qint32 nodesTotal)
        : controls_(controls), NodesTotal(nodesTotal) {}

    /// The display's state before anything is loaded.
    static void Reset(BrowserControls& controls);

    /// The bar when all is loaded.
    [[nodiscard]] static QString FullBar();

    /// Another child is being handled.
    void Advance() { ++NodesDone; }
    /// Shows the numbers at once.
    void Show();

private:
    BrowserControls& controls_;
    qint32 NodesTotal;
    qint32 NodesDone = 0;
};

} // namespace netrove
