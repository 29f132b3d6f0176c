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

/// Where the program prints, and what the user does meanwhile.
struct FindConsole {
    ConsoleOutput& out;
    ConsoleOutput& err;
    /// The number of the signal that asks the search to stop, 0 as long as none came.
    std::function<int()> signal;
};

/// Exit statuses of the program.
namespace FindStatus {
inline constexpr int Found = 0;
inline constexpr int NothingFound = 1;
inline constexpr int Failed = 2;
/// To this the number of the signal is added that stopped the search.
inline constexpr int Signal = 128;
} // namespace FindStatus

/// One search on the console: runs the engine, prints what it finds and shows how far it is.
class FindRun {
public:
    FindRun(const FindArguments& arguments, const FindServices& services,
            const FindConsole& console);

    /// Gives the exit status. Raises WrongUse for a start node or a log file that can't be had,
    /// RunTimeError for a search that fails as a whole.
    [[nodiscard]] int Execute();

private:
    void Search();
    void OnFound(const QString& netPath);
    void PrintFound(const QString& netPath);
    /// What happens between the steps of the walk and while it waits for the network.
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
    std::optional<RunTimeError> failure_; ///< what a match couldn't be printed for
};

} // namespace netrove
