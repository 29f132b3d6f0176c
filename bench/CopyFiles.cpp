#include "downloads/copier/FileCopier.h"
#include "redirector/OpenNetwork.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>

/// Copies files as the window does, all at once, and prints the seconds that it took. A file whose
/// copy fails makes the program fail.
///
/// usage: copy_files FOLDER-OF-NETWORK.INI TARGET-FOLDER SOURCE…
int main(int argc, char** argv) {
    using namespace netrove;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 4)
        return 2;
    const auto network = OpenNetwork(arguments[1]);
    FileCopier copier(*network.network);
    qsizetype left = arguments.size() - 3;
    int result = 0;
    QObject::connect(&copier, &CopyQ::CopyDone, &application, [&](const QString&, int number) {
        if (number != 0) {
            std::fprintf(stderr, "a copy failed: error %d\n", number);
            result = 1;
        }
        if (--left == 0)
            QCoreApplication::exit(result);
    });
    const auto begin = std::chrono::steady_clock::now();
    for (const QString& source : arguments.mid(3)) {
        const QString name = source.mid(source.lastIndexOf(QLatin1Char('\\')) + 1);
        static_cast<void>(copier.QueueCopy(source, arguments[2] + QLatin1Char('/') + name));
    }
    const int code = QCoreApplication::exec();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    std::printf("%.3f\n", took.count());
    return code;
}
