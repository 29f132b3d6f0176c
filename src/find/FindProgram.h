#pragma once

#include "find/FindRun.h"

#include <QStringList>

#include <functional>

namespace netrove {

/// Opens the network that the arguments ask for. May raise WrongUse.
using OpenFindNetwork = std::function<FindServices(const FindArguments& arguments)>;

/// The whole of netrove-find: reads its arguments (those after the program's name), opens the
/// network if it is to be searched, and returns the exit status. Whatever goes wrong is reported on
/// standard error.
[[nodiscard]] int FindProgram(const QStringList& arguments, const FindConsole& console,
                              const OpenFindNetwork& openNetwork);

/// Prints a message about the program's run.
void PrintMessage(ConsoleOutput& err, const QString& text);

} // namespace netrove
