#pragma once

#include <QString>
#include <QStringList>

namespace netrove {

/// Asks computers and shares again that a search has passed over, all at once and in the background
/// of the window's work, and notes in the NetworkReport what they answer.
class ReachTest {
public:
    ReachTest() = default;
    ReachTest(const ReachTest&) = delete;
    ReachTest& operator=(const ReachTest&) = delete;
    virtual ~ReachTest() = default;

    /// Begins to ask these, by the names of their nodes; drops the questions to all others.
    virtual void Begin(const QStringList& names) = 0;
    /// Drops all questions. Waits some hundredths of a second at most.
    virtual void Cancel() = 0;

    /// Notes the answers that have come in the report.
    virtual void TakeAnswers() = 0;
    /// Whether this place's answer is still to come or to be taken.
    [[nodiscard]] virtual bool IsAsking(const QString& name) const = 0;
    [[nodiscard]] virtual bool IsRunning() const = 0;

    /// How many computers the network has now. Blocks for some seconds at most, and calls
    /// WhileWaiting().
    [[nodiscard]] virtual int CountComputers() = 0;
};

} // namespace netrove
