#pragma once

#include "platform/Shell.h"

#include <QHash>
#include <QIcon>
#include <QMimeDatabase>
#include <QMimeType>
#include <QStringList>

#include <vector>

namespace netrove {

/// Kinds of files from the desktop's list of file name endings, their pictures from its icon
/// theme, or, where that has none of files, from another that is installed. Nothing is read, so
/// that a file on the network costs nothing. One and the same ending always has one and the same
/// kind.
class DesktopFileTypes : public FileTypes {
public:
    DesktopFileTypes();

    [[nodiscard]] ShellFileInfo Info(const QString& path) override;

    /// The picture of a number that Info has given; a null icon for 0, any other number, and
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
    QString theme_; ///< which the pictures are of; empty for the desktop's
    QHash<QString, ShellFileInfo> byEnding_;
    std::vector<ThemeIcon> icons_; ///< the index is the place plus one
    QHash<QString, int> indexByName_;
};

} // namespace netrove
