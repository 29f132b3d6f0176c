#include "find/FindProgram.h"

#include "find/ConsoleText.h"
#include "find/HelpText.h"
#include "find/WrongUse.h"
#include "runtime/ProgramVersion.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <QCoreApplication>

#include <cerrno>
#include <cstring>

namespace netrove {
namespace {

int Execute(const QStringList& arguments, const FindConsole& console,
            const OpenFindNetwork& openNetwork) {
    const FindArguments parsed = FindArguments::Parse(arguments);
    switch (parsed.action) {
    case FindArguments::Action::ShowHelp:
        console.out.Write(HelpText().toUtf8());
        return FindStatus::Found;
    case FindArguments::Action::ShowVersion:
        console.out.WriteLine("netrove-find "_L1 + ProgramVersion());
        return FindStatus::Found;
    case FindArguments::Action::Search:
        break;
    }
    const FindServices services = openNetwork(parsed);
    return FindRun(parsed, services, console).Execute();
}

/// Whether output has been lost. A reader that stops reading (EPIPE) loses nothing that it wants.
bool IsLost(const ConsoleOutput& out) {
    return out.Error() != 0 && out.Error() != EPIPE;
}

} // namespace

void PrintMessage(ConsoleOutput& err, const QString& text) {
    err.WriteLine("netrove-find: "_L1 + Escaped(text, Escaping::AllControls));
}

int FindProgram(const QStringList& arguments, const FindConsole& console,
                const OpenFindNetwork& openNetwork) {
    int status = FindStatus::Failed;
    try {
        status = Execute(arguments, console, openNetwork);
    } catch (const WrongUse& error) {
        PrintMessage(console.err, error.Text());
        console.err.WriteLine(QCoreApplication::translate(
            "FindProgram", "Try 'netrove-find --help' for more information."));
    } catch (...) {
        PrintMessage(console.err, CurrentFailure().Description());
    }
    console.out.Flush();
    if (IsLost(console.out)) {
        const QString why = QString::fromLocal8Bit(std::strerror(console.out.Error()));
        PrintMessage(
            console.err,
            QCoreApplication::translate("FindProgram", "cannot write the output: %1").arg(why));
        status = FindStatus::Failed;
    }
    console.err.Flush();
    return status;
}

} // namespace netrove
