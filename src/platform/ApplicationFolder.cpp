#include "platform/ApplicationFolder.h"

#include "runtime/SourceText.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace netrove {
namespace {

/// The help's first page, below the application folder and below the installed one.
constexpr QLatin1String Page("/Help/Netrove.html");

} // namespace

QString ProgramFolder() {
    return QFileInfo(u"/proc/self/exe"_s).canonicalPath();
}

QString InstalledFolder(const QString& programFolder) {
    const QString share = QDir::cleanPath(programFolder + "/../share/netrove"_L1);
    return QFileInfo::exists(share + Page) ? share : QString();
}

QString ApplicationFolder(const QString& programFolder) {
    // Being able to write there isn't enough: root can write everywhere, and users in folders of
    // programs that they own.
    if (!programFolder.isEmpty() && InstalledFolder(programFolder).isEmpty() &&
        QFileInfo(programFolder).isWritable())
        return programFolder;
    const QString data =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/netrove"_L1;
    QDir().mkpath(data);
    return data;
}

QString HelpPage(const QString& applicationFolder, const QString& installedFolder) {
    const QString own = QDir::toNativeSeparators(applicationFolder + Page);
    return installedFolder.isEmpty() || QFileInfo::exists(own) ? own : installedFolder + Page;
}

} // namespace netrove
