#pragma once

#include "platform/Shell.h"

#include <QHash>
#include <QIcon>
#include <QMimeDatabase>
#include <QMimeType>
#include <QStringList>

#include <vector>

namespace netrove {

/// Takes kinds of files from the desktop's list of file name endings, and their pictures from its
/// icon theme, or, if that has no pictures of files, from another installed theme. Files aren't
/// read, so that one on the network costs nothing. The same ending always gives the same kind.
class DesktopFileTypes : public FileTypes {
public:
    DesktopFileTypes();

    [[nodiscard]] ShellFileInfo Info(const QString& path) override;

    /// The picture for a number that Info has given; a null icon for 0, for any other number, and
    /// where no theme has a picture.
    [[nodiscard]] QIcon Icon(int iconIndex) const;

private:
    struct ThemeIcon {
        QString name;
        QString genericName;
    };

    [[nodiscard]] ShellFileInfo LookUp(const QString& fileName);
    [[nodiscard]] int IndexOf(const QMimeType& type);

    QMimeDatabase database_;
    QString theme_; ///< the pictures' theme; empty for the desktop's
    QHash<QString, ShellFileInfo> byEnding_;
    std::vector<ThemeIcon> icons_; ///< an icon's number is its place plus one
    QHash<QString, int> indexByName_;
};

} // namespace netrove
