#include "desktop/DesktopFileTypes.h"

#include "runtime/SourceText.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>

namespace netrove {

namespace {

/// Endings come from the network, where anybody can make any number of them.
constexpr qsizetype MaxEndings = 4096;

QString FileName(const QString& path) {
    return path.mid(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

/// What the kind depends on: the last two endings ("tar.gz", "txt"), or the name of a file
/// without one ("Makefile").
QString Ending(const QString& fileName) {
    const qsizetype last = fileName.lastIndexOf(u'.');
    if (last < 0)
        return fileName;
    const qsizetype before = last > 0 ? fileName.lastIndexOf(u'.', last - 1) : -1;
    return fileName.mid(before >= 0 ? before : last);
}

/// Whether the theme has pictures of the commonest kinds.
bool HasPicturesOfFiles() {
    return QIcon::hasThemeIcon(u"text-x-generic"_s) && QIcon::hasThemeIcon(u"audio-x-generic"_s);
}

/// The themes that are installed, those that are likely to be complete first.
QStringList InstalledThemes() {
    QStringList themes{u"Adwaita"_s, u"breeze"_s};
    for (const QString& place : QIcon::themeSearchPaths()) {
        for (const QString& name : QDir(place).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            if (QFile::exists(place + u'/' + name + u"/index.theme"_s))
                themes.append(name);
        }
    }
    return themes;
}

void AddInstalledPlaces() {
    QStringList places = QIcon::themeSearchPaths();
    for (const QString& place : QStandardPaths::locateAll(
             QStandardPaths::GenericDataLocation, u"icons"_s, QStandardPaths::LocateDirectory)) {
        if (!places.contains(place))
            places.append(place);
    }
    QIcon::setThemeSearchPaths(places);
}

/// Puts a theme in force for a moment, so that boxes and buttons keep the desktop's pictures; an
/// empty name leaves the desktop's theme in force.
class ThemeInForce {
public:
    explicit ThemeInForce(const QString& name) : desktops_(QIcon::themeName()) {
        if (!name.isEmpty())
            QIcon::setThemeName(name);
    }
    ~ThemeInForce() {
        if (QIcon::themeName() != desktops_)
            QIcon::setThemeName(desktops_);
    }
    ThemeInForce(const ThemeInForce&) = delete;
    ThemeInForce& operator=(const ThemeInForce&) = delete;

private:
    QString desktops_;
};

/// The theme for the pictures of files. A desktop that Qt doesn't know names no theme, or
/// "hicolor", which has only pictures of programs; and a theme that a desktop names needn't be
/// installed.
QString ThemeOfFiles() {
    for (const QString& name : QStringList(QString()) + InstalledThemes()) {
        const ThemeInForce theme(name);
        if (HasPicturesOfFiles())
            return name;
    }
    return {};
}

/// The icon as it looks under the theme in force.
QIcon Drawn(const QIcon& icon) {
    QIcon drawn;
    for (const int size : {16, 24, 32, 48, 64}) {
        if (const QPixmap picture = icon.pixmap(QSize(size, size), 1.0); !picture.isNull())
            drawn.addPixmap(picture);
    }
    return drawn;
}

} // namespace

DesktopFileTypes::DesktopFileTypes() {
    AddInstalledPlaces();
    theme_ = ThemeOfFiles();
}

ShellFileInfo DesktopFileTypes::Info(const QString& path) {
    const QString ending = Ending(FileName(path));
    const auto known = byEnding_.constFind(ending);
    if (known != byEnding_.cend())
        return *known;
    if (byEnding_.size() >= MaxEndings)
        byEnding_.clear();
    // A neutral name before the ending, so that the kind doesn't depend on which file comes first.
    const bool hasDot = ending.startsWith(u'.');
    return *byEnding_.insert(ending, LookUp(hasDot ? u'x' + ending : ending));
}

QIcon DesktopFileTypes::Icon(int iconIndex) const {
    if (iconIndex < 1 || static_cast<size_t>(iconIndex) > icons_.size())
        return {};
    const ThemeIcon& icon = icons_[static_cast<size_t>(iconIndex) - 1];
    const ThemeInForce theme(theme_);
    return Drawn(QIcon::fromTheme(icon.name, QIcon::fromTheme(icon.genericName)));
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
