#include "find/FindProgram.h"
#include "find/Interruption.h"
#include "find/LogonFile.h"
#include "platform/ApplicationFolder.h"
#include "platform/LinuxSystemInformation.h"
#include "platform/Utf8Locale.h"
#include "redirector/OpenNetwork.h"
#include "services/NetworkNodes.h"
#include "translations/Translation.h"

#include <QCoreApplication>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace netrove {
namespace {

/// Opens the standard streams that the caller has closed, so that no connection gets the number of
/// one and receives the output.
void OpenStandardStreams() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) < 0)
            (void)open("/dev/null", O_RDWR);
    }
}

std::shared_ptr<Logons> LogonsOf(const FindArguments& arguments) {
    if (arguments.logonFile.isEmpty())
        return nullptr;
    auto logons = std::make_shared<Logons>();
    logons->Store(ReadLogonFile(arguments.logonFile), [](Keyring::Outcome) {});
    return logons;
}

int Main(int argc, char** argv) {
    OpenStandardStreams();
    const QStringList languages = UserLanguages(); // the next line may set another locale
    UseUtf8Locale();
    // The next write will notice that a reader has gone.
    std::signal(SIGPIPE, SIG_IGN);
    const Interruption interruption;
    const QCoreApplication application(argc, argv);
    const Translation translation(languages);

    ConsoleOutput out(STDOUT_FILENO);
    ConsoleOutput err(STDERR_FILENO);
    OpenedNetwork opened;
    const auto openNetwork = [&opened, &err](const FindArguments& arguments) -> FindServices {
        opened = OpenNetwork(ApplicationFolder(), LogonsOf(arguments));
        for (const QString& problem : opened.problems)
            PrintMessage(err, problem);
        err.Flush();
        Network& network = *opened.network;
        return {.network = network,
                .files = network,
                .record = [&network](const UncPath& path) { return network.Record(path); },
                .ahead = &network,
                .report = &network.Report(),
                .computer = ComputerUNCName(LinuxSystemInformation())};
    };
    return FindProgram(application.arguments().mid(1),
                       {.out = out, .err = err, .signal = Interruption::Signal}, openNetwork);
}

} // namespace
} // namespace netrove

int main(int argc, char** argv) {
    return netrove::Main(argc, argv);
}
