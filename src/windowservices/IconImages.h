#pragma once

#include "controls/ImageList.h"
#include "controls/ListView.h"
#include "platform/Shell.h"

#include <QIcon>
#include <QString>
#include <QWidget>

#include <functional>

namespace netrove {

/// Kinds of icons of found files, as the settings number them.
inline constexpr qint32 PredefinedIconType = 0;
inline constexpr qint32 SystemIconType = 1;

/// The picture sets that the results can be bound to, and the hidden surfaces that the pictures of
/// the system set are drawn on.
struct IconSets {
    ImageList& imgPreIconsLg;
    ImageList& imgPreIconsSm;
    ImageList& imgSysIconsLg;
    ImageList& imgSysIconsSm;
    QWidget& picIconLg;
    QWidget& picIconSm;
};

/// What AddIconItem found out about a file, and the row that it made.
struct IconItem {
    QString extension = {};
    QString typeName = {};
    int row = 0;
};

/// Adds the rows of found files and decides the picture of each: one of the predefined set, by the
/// file's extension, or the desktop's, which is copied into the system set at its first use. If the
/// desktop has none, the predefined picture goes into that set.
class IconImages {
public:
    /// The desktop's picture for an icon index from FileTypes.
    using SystemIcon = std::function<QIcon(int iconIndex)>;

    /// The services outlive this object.
    IconImages(FileTypes& fileTypes, SystemIcon systemIcon);

    /// Binds a list to the picture set that the settings choose, or to none. To be called before
    /// each search and load.
    static void BindIcons(ListView& list, const IconSets& sets, bool showListIcons,
                          qint32 listIconType);

    /// Adds a row with the text `fileName`. `images` is the system set; `picture` is its drawing
    /// surface. The desktop is asked about the file only if its type or its icon is to be shown.
    [[nodiscard]] IconItem AddIconItem(ListView& list, const QWidget& picture, ImageList& images,
                                       const QString& fullPath, const QString& fileName,
                                       bool showFileTypes, bool showListIcons, qint32 listIconType);

    /// Whether the set has no picture of this icon of the desktop.
    [[nodiscard]] static bool ImageKeyMissing(const ImageList& images, int iconIndex);

    /// Moves the two surfaces to 0,0, makes them 480 and 240 twips square, and hides them.
    static void SizeIconPictures(QWidget& picIconLg, QWidget& picIconSm);

private:
    [[nodiscard]] QString SystemKey(const QWidget& picture, ImageList& images, int iconIndex,
                                    const QString& extension);

    FileTypes& fileTypes_;
    SystemIcon systemIcon_;
};

/// The key of the predefined picture for an extension (in upper case, compared exactly); "<NONE>"
/// for one without a picture of its own.
[[nodiscard]] QString PredefinedKey(const QString& extension);

} // namespace netrove
