#include "desktop/DesktopApplication.h"
#include "fakes/Files.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

/// A desktop of the tests' own: the real kinds of files and pictures, and one program, which
/// plays MPEG audio and edits plain text. No session bus.
void MakeDesktop(const QString& folder) {
    const QString applications = folder + QLatin1String("/data/applications/");
    QDir().mkpath(applications);
    for (const QString& name : {QStringLiteral("mime"), QStringLiteral("icons")})
        QFile::link(QLatin1String("/usr/share/") + name, folder + QLatin1String("/data/") + name);
    netrove::WriteFile(applications + QLatin1String("reader.desktop"),
                       "[Desktop Entry]\nType=Application\nName=Reader\nExec=true %U\n"
                       "MimeType=text/plain;audio/mpeg;\n");
    netrove::WriteFile(applications + QLatin1String("mimeinfo.cache"),
                       "[MIME Cache]\naudio/mpeg=reader.desktop;\ntext/plain=reader.desktop;\n");

    const QByteArray root = QFile::encodeName(folder);
    qputenv("XDG_DATA_DIRS", root + "/data");
    qputenv("XDG_DATA_HOME", root + "/home");
    qputenv("XDG_CONFIG_HOME", root + "/config");
    qputenv("XDG_CONFIG_DIRS", root + "/config");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    qunsetenv("XDG_CURRENT_DESKTOP");
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    MakeDesktop(folder.path());
    testing::InitGoogleTest(&argc, argv);
    const netrove::DesktopApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
