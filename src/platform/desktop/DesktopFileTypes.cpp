#include "platform/desktop/DesktopFileTypes.h"

#include <QStandardPaths>

#include <algorithm>

namespace netrove {

namespace {

/// Endings come from the network, as many as somebody likes to make.
constexpr qsizetype MaxEndings = 4096;

QString FileName(const QString& path) {
    return path.mid(std::max(path.lastIndexOf(QLatin1Char('\\')), path.lastIndexOf(u'/')) + 1);
}

/// What the kind depends on: the last two endings ("tar.gz", "txt"), or the name of a file
/// without one ("Makefile").
QString Ending(const QString& fileName) {
    const qsizetype last = fileName.lastIndexOf(QLatin1Char('.'));
    if (last < 0)
        return fileName;
    const qsizetype before = last > 0 ? fileName.lastIndexOf(QLatin1Char('.'), last - 1) : -1;
    return fileName.mid(before >= 0 ? before : last);
}

/// Without a desktop that names a theme and its place, the one that the program is installed with.
void EnsureIconTheme() {
    const QString ours = QStringLiteral("Adwaita");
    if (QIcon::themeName().isEmpty())
        QIcon::setThemeName(ours);
    if (QIcon::fallbackThemeName().isEmpty())
        QIcon::setFallbackThemeName(ours);
    QStringList places = QIcon::themeSearchPaths();
    for (const QString& place :
         QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("icons"),
                                   QStandardPaths::LocateDirectory)) {
        if (!places.contains(place))
            places.append(place);
    }
    QIcon::setThemeSearchPaths(places);
}

} // namespace

DesktopFileTypes::DesktopFileTypes() {
    EnsureIconTheme();
}

ShellFileInfo DesktopFileTypes::Info(const QString& path) {
    const QString ending = Ending(FileName(path));
    const auto known = byEnding_.constFind(ending);
    if (known != byEnding_.cend())
        return *known;
    if (byEnding_.size() >= MaxEndings)
        byEnding_.clear();
    // A neutral first part, so that the kind doesn't depend on who asks first.
    const bool hasDot = ending.startsWith(QLatin1Char('.'));
    return *byEnding_.insert(ending, LookUp(hasDot ? QLatin1Char('x') + ending : ending));
}

QIcon DesktopFileTypes::Icon(int iconIndex) const {
    if (iconIndex < 1 || static_cast<size_t>(iconIndex) > icons_.size())
        return {};
    const ThemeIcon& icon = icons_[static_cast<size_t>(iconIndex) - 1];
    return QIcon::fromTheme(icon.name, QIcon::fromTheme(icon.genericName));
}

ShellFileInfo DesktopFileTypes::LookUp(const QString& fileName) {
    const QMimeType type = database_.mimeTypeForFile(fileName, QMimeDatabase::MatchExtension);
    if (type.isDefault())
        return {};
    return {IndexOf(type), type.comment()};
}

int DesktopFileTypes::IndexOf(const QMimeType& type) {
    const auto known = indexByName_.constFind(type.iconName());
    if (known != indexByName_.cend())
        return *known;
    icons_.push_back({type.iconName(), type.genericIconName()});
    const int index = static_cast<int>(icons_.size());
    indexByName_.insert(type.iconName(), index);
    return index;
}

} // namespace netrove
