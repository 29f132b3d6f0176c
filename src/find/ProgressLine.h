#pragma once

#include "find/ConsoleOutput.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QString>

namespace netrove {

/// One line on a terminal that is rewritten again and again: how far the search is. Writes nothing
/// if there is no terminal.
class ProgressLine {
    Q_DECLARE_TR_FUNCTIONS(ProgressLine)

public:
    explicit ProgressLine(ConsoleOutput& output) : output_(output) {}
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine() { Clear(); }

    /// Shows the line, at most a few times a second.
    void Show(qint32 found, const QString& place);

    /// Removes the line, so that something else can be printed.
    void Clear();

private:
    ConsoleOutput& output_;
    QElapsedTimer shown_;
    bool isShown_ = false;
};

} // namespace netrove
