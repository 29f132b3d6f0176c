#pragma once

#include <QString>
#include <QStringList>

namespace netrove {

/// Asks computers and shares again that a search has passed over, side by side and beside the
/// window's work, and takes down in the NetworkReport what they answer.
class ReachTest {
public:
    ReachTest() = default;
    ReachTest(const ReachTest&) = delete;
    ReachTest& operator=(const ReachTest&) = delete;
    virtual ~ReachTest() = default;

    /// Asks these, by the names of their nodes, and nobody else any more.
    virtual void Begin(const QStringList& names) = 0;
    /// Waits some hundredths of a second at most.
    virtual void Cancel() = 0;

    /// Takes down the answers that have come.
    virtual void TakeAnswers() = 0;
    /// Whether its answer is still to come or to be taken.
    [[nodiscard]] virtual bool IsAsking(const QString& name) const = 0;
    [[nodiscard]] virtual bool IsRunning() const = 0;

    /// How many computers the network has now. Blocks for some seconds at most, and calls
    /// WhileWaiting().
    [[nodiscard]] virtual int CountComputers() = 0;
};

} // namespace netrove
