#include "platform/ApplicationFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace netrove {
namespace {

/// Below the application folder, and below the installed one.
constexpr QLatin1String Page("/Help/Netrove.html");

} // namespace

QString ProgramFolder() {
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
}

QString InstalledFolder(const QString& programFolder) {
    const QString share = QDir::cleanPath(programFolder + QLatin1String("/../share/netrove"));
    return QFileInfo::exists(share + Page) ? share : QString();
}

QString ApplicationFolder(const QString& programFolder) {
    // Root may write everywhere, and the user into a folder of programs that is theirs.
    if (!programFolder.isEmpty() && InstalledFolder(programFolder).isEmpty() &&
        QFileInfo(programFolder).isWritable())
        return programFolder;
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                         QLatin1String("/netrove");
    QDir().mkpath(data);
    return data;
}

QString HelpPage(const QString& applicationFolder, const QString& installedFolder) {
    const QString own = QDir::toNativeSeparators(applicationFolder + Page);
    return installedFolder.isEmpty() || QFileInfo::exists(own) ? own : installedFolder + Page;
}

} // namespace netrove
