#include "windowservices/IconImages.h"

#include "controls/Twips.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "services/Paths.h"
#include "windowservices/PredefinedIcons.h"

#include <QHash>

#include <utility>

namespace netrove {

namespace {

constexpr int LargePicture = 480; // twips
constexpr int SmallPicture = 240;

QHash<QString, QString> MakePredefinedKeys() {
    const std::pair<const char*, const char*> extensionsOfKeys[] = {
        {"CAB", "CAB"},
        {"GIF", "GIF JPG ICO PNG JPEG TIFF BMP PCX PSP"},
        {"TXT", "TXT DOC WRI DAT LOG"},
        {"ZIP", "ZIP ACE RAR LZH TAR 7Z GZIP GZ BZIP BZ2"},
        {"CSV", "CSV"},
        {"MP3", "MP3 MP2 MP1 WAV WMA AIF M3U AU RA"},
        {"EXE", "EXE"},
        {"AVI", "AVI ASF MPEG MPG MOV RM WMV"},
        {"RBY", "RBY"},
    };
    QHash<QString, QString> keys;
    for (const auto& [key, extensions] : extensionsOfKeys) {
        for (const QString& extension : QString::fromLatin1(extensions).split(u' '))
            keys.insert(extension, QString::fromLatin1(key));
    }
    return keys;
}

QString SystemKeyOf(int iconIndex) {
    return u'K' + QString::number(iconIndex);
}

/// The icon as it looks on this surface.
QPixmap DrawnOn(const QWidget& picture, const QIcon& icon) {
    return icon.pixmap(picture.size(), picture.devicePixelRatioF());
}

} // namespace

QString PredefinedKey(const QString& extension) {
    static const QHash<QString, QString> keys = MakePredefinedKeys();
    return keys.value(extension, u"<NONE>"_s);
}

IconImages::IconImages(FileTypes& fileTypes, SystemIcon systemIcon)
    : fileTypes_(fileTypes), systemIcon_(std::move(systemIcon)) {}

void IconImages::BindIcons(ListView& list, const IconSets& sets, bool showListIcons,
                           qint32 listIconType) {
    if (!showListIcons) {
        list.SetIcons(nullptr);
        list.SetSmallIcons(nullptr);
    } else if (listIconType == PredefinedIconType) {
        list.SetIcons(&sets.imgPreIconsLg);
        list.SetSmallIcons(&sets.imgPreIconsSm);
    } else {
        SizeIconPictures(sets.picIconLg, sets.picIconSm);
        list.SetIcons(&sets.imgSysIconsLg);
        list.SetSmallIcons(&sets.imgSysIconsSm);
    }
}

IconItem IconImages::AddIconItem(ListView& list, const QWidget& picture, ImageList& images,
                                 const QString& fullPath, const QString& fileName,
                                 bool showFileTypes, bool showListIcons, qint32 listIconType) {
    IconItem item{.extension = FileExtension(fileName)};
    const bool showSystemIcon = showListIcons && listIconType == SystemIconType;
    ShellFileInfo info;
    if (showFileTypes || showSystemIcon)
        info = fileTypes_.Info(fullPath);
    if (showFileTypes)
        item.typeName = Trim(CutAtZero(info.typeName));
    if (!showListIcons) {
        item.row = list.Add(fileName);
        return item;
    }
    const QString key = showSystemIcon ? SystemKey(picture, images, info.iconIndex, item.extension)
                                       : PredefinedKey(item.extension);
    item.row = list.Add(fileName, key);
    return item;
}

QString IconImages::SystemKey(const QWidget& picture, ImageList& images, int iconIndex,
                              const QString& extension) {
    const int index = iconIndex < 1 ? 0 : iconIndex;
    // Drawing is the slow part, and done only for an icon that the set doesn't have yet.
    if (ImageKeyMissing(images, index)) {
        QPixmap drawn = DrawnOn(picture, systemIcon_(iconIndex));
        // All types that the desktop doesn't know share one picture.
        if (drawn.isNull())
            drawn =
                DrawnOn(picture, PredefinedIcon(PredefinedKey(index == 0 ? QString() : extension)));
        images.Add(SystemKeyOf(index), drawn);
    }
    return SystemKeyOf(index);
}

bool IconImages::ImageKeyMissing(const ImageList& images, int iconIndex) {
    return !images.Contains(SystemKeyOf(iconIndex));
}

void IconImages::SizeIconPictures(QWidget& picIconLg, QWidget& picIconSm) {
    picIconLg.setGeometry(0, 0, ToPixels(LargePicture), ToPixels(LargePicture));
    picIconSm.setGeometry(0, 0, ToPixels(SmallPicture), ToPixels(SmallPicture));
    picIconLg.hide();
    picIconSm.hide();
}

} // namespace netrove
