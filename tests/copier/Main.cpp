#include "copier/CopierDriver.h"
#include "redirector/SmbProvider.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

/// A program that copies, for tests of how it ends: ADDRESS-PORT HELPER SOURCE TARGET. It says
/// "copying" when the copy is under way, and ends when its input does.
int CopyUntilEndOfInput(const QStringList& arguments) {
    using namespace netrove;
    const SmbHost host{.name = QStringLiteral("FILER"),
                       .address = QStringLiteral("127.0.0.1"),
                       .port = arguments[0].toUShort()};
    CopierDriver driver(std::make_unique<SmbProvider>(QStringLiteral("LAN"),
                                                      std::vector<SmbHost>{host}, arguments[1]));
    const QString id = driver.Copier().QueueCopy(arguments[2], arguments[3]);
    if (!driver.WaitForProgress(id))
        return 1;
    std::puts("copying");
    std::fflush(stdout);
    std::getchar();
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("copy"))
        return CopyUntilEndOfInput(arguments.mid(2));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
