#include "desktop/DesktopApplication.h"
#include "desktop/SessionBus.h"
#include "netrove/StartArguments.h"
#include "netrove/WindowProgram.h"
#include "platform/Utf8Locale.h"
#include "runtime/ProgramVersion.h"
#include "runtime/SourceText.h"
#include "translations/Translation.h"
#include "windowservices/PredefinedIcons.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int WrongUse = 2;

void Print(const QString& text, std::FILE* stream) {
    std::fputs(text.toLocal8Bit().constData(), stream);
}

/// Whether a text is to be printed. Asked before there is an application with windows, as that
/// would need a display.
bool AsksForText(int argc, char** argv) {
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    return !netrove::StartArguments(arguments).Text().isEmpty();
}

void PrintText(int argc, char** argv) {
    const QStringList languages = netrove::UserLanguages(); // the next line may set another locale
    netrove::UseUtf8Locale();
    const QCoreApplication application(argc, argv);
    const netrove::Translation translation(languages);
    Print(netrove::StartArguments(application.arguments().mid(1)).Text(), stdout);
}

} // namespace

int main(int argc, char** argv) {
    if (AsksForText(argc, argv)) {
        PrintText(argc, argv);
        return EXIT_SUCCESS;
    }
    netrove::LeaveSilentSessionBus();
    const netrove::DesktopApplication application(argc, argv);
    const netrove::Translation translation;
    const netrove::StartArguments start(QApplication::arguments().mid(1));
    if (!start.Problem().isEmpty()) {
        Print(start.Problem(), stderr);
        return WrongUse;
    }
    QApplication::setApplicationName(netrove::Text("netrove"));
    QApplication::setApplicationVersion(netrove::ProgramVersion());
    QApplication::setDesktopFileName(netrove::Text("netrove"));
    QApplication::setWindowIcon(netrove::ProgramIcon());
    // The toolkit doesn't count a window in the tray, so it would end the application.
    QApplication::setQuitOnLastWindowClosed(false);

    netrove::WindowProgram program;
    // From the event loop, as the session may end while the start shows a box.
    QMetaObject::invokeMethod(
        qApp, [&] { program.Start(start.Files()); }, Qt::QueuedConnection);
    return QApplication::exec();
}
