#pragma once

#include "find/ConsoleOutput.h"
#include "find/FindArguments.h"
#include "find/ProgressLine.h"
#include "find/ResultLines.h"
#include "find/StartNode.h"
#include "runtime/RunTimeError.h"
#include "search/NWSearch.h"

#include <QElapsedTimer>

#include <functional>
#include <optional>

namespace netrove {

/// Where the program prints, and how the user can stop it.
struct FindConsole {
    ConsoleOutput& out;
    ConsoleOutput& err;
    /// The number of the signal that asks the search to stop; 0 while none has come.
    std::function<int()> signal;
};

/// Exit statuses of the program.
namespace FindStatus {
inline constexpr int Found = 0;
inline constexpr int NothingFound = 1;
inline constexpr int Failed = 2;
/// The number of the signal that stopped the search is added to this.
inline constexpr int Signal = 128;
} // namespace FindStatus

/// One search on the console: runs the engine, prints what it finds and shows how far it is.
class FindRun {
public:
    FindRun(const FindArguments& arguments, const FindServices& services,
            const FindConsole& console);

    /// Returns the exit status. Raises WrongUse if there is no such start node or the log file
    /// can't be written, RunTimeError if the search fails as a whole.
    [[nodiscard]] int Execute();

private:
    void Search();
    void OnFound(const QString& netPath);
    void PrintFound(const QString& netPath);
    /// Called between the steps of the walk and while it waits for the network.
    [[nodiscard]] bool Pass();
    void PrintNotSearched();
    void PrintSummary();

    const FindArguments& arguments_;
    const FindServices& services_;
    const FindConsole& console_;
    Settings settings_;
    ExclusionLists exclusions_;
    TroubleshootingLog log_;
    NWSearch engine_;
    ResultLines lines_;
    ProgressLine progress_;
    QElapsedTimer clock_;
    QString place_;
    qint32 found_ = 0;
    bool capped_ = false;
    int signal_ = 0;
    std::optional<RunTimeError> failure_; ///< why a match couldn't be printed
};

} // namespace netrove
