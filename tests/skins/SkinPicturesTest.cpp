#include "skins/SkinPictures.h"

#include "fakes/Pixels.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(SkinPicturesTest, AreThereInEveryDensityAndWithoutTheTransparentColour) {
    const SkinPictures pictures;
    for (int entry = 0; entry < 10; ++entry) {
        SCOPED_TRACE(entry);
        const QPixmap plain = pictures.Picture(entry, 1);
        EXPECT_FALSE(ColorsOf(plain.toImage(), plain.rect()).contains(qRgb(255, 0, 255)));
        const QPixmap dense = pictures.Picture(entry, 1.25);
        EXPECT_EQ(dense.devicePixelRatio(), 2);
        EXPECT_EQ(dense.deviceIndependentSize(), QSizeF(plain.size()));
        EXPECT_EQ(pictures.Picture(entry, 50).devicePixelRatio(), 4);
    }
    EXPECT_TRUE(pictures.Picture(10, 1).isNull());
}

} // namespace
} // namespace netrove
