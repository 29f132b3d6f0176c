#include "windowservices/PredefinedIcons.h"

#include "fakes/Pixels.h"
#include "runtime/RunTimeError.h"

#include <QPixmap>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// How many pixels of the icon at this size are drawn at all.
int Drawn(const QIcon& icon, int size, double density) {
    const QImage picture = icon.pixmap(QSize(size, size), density).toImage();
    EXPECT_EQ(picture.width(), size * density);
    return picture.width() * picture.height() -
           ColorsOf(picture, picture.rect()).value(qRgba(0, 0, 0, 0));
}

TEST(PredefinedIconsTest, EveryKeyHasAPictureOfItsOwn) {
    QList<QImage> seen;
    for (const QString& key : PredefinedIconKeys()) {
        const QIcon icon = PredefinedIcon(key);
        for (const int size : {16, 32}) {
            for (const double density : {1.0, 2.0})
                EXPECT_GT(Drawn(icon, size, density), size * size / 4) << key.toStdString();
        }
        const QImage picture = icon.pixmap(16, 16).toImage();
        EXPECT_FALSE(seen.contains(picture)) << key.toStdString();
        seen.append(picture);
    }
    EXPECT_EQ(seen.size(), 10);
    for (const char* none : {"", "gif", "../netrove", "K12"})
        EXPECT_THROW(static_cast<void>(PredefinedIcon(QString::fromLatin1(none))), RunTimeError);
}

TEST(PredefinedIconsTest, TheWindowsPicturesAreThere) {
    EXPECT_GT(Drawn(ProgramIcon(), 16, 1), 100);
    EXPECT_GT(Drawn(FileKindsIcon(true), 20, 1), 200);
    EXPECT_GT(Drawn(FileKindsIcon(false), 20, 1), 200);
    EXPECT_EQ(Drawn(BlankIcon(), 16, 1), 0);
}

} // namespace
} // namespace netrove
