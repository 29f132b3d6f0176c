#include "desktop/DesktopFileTypes.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(DesktopFileTypesTest, TellsKindsByNameAlone) {
    DesktopFileTypes types;
    const auto info = [&](const char* path) { return types.Info(QString::fromUtf8(path)); };

    const ShellFileInfo song = info("\\\\NAS\\S\\song.mp3");
    EXPECT_EQ(song.iconIndex, 1);
    EXPECT_FALSE(song.typeName.isEmpty());
    EXPECT_EQ(info("/x/b.01.MP3").typeName, song.typeName);

    // Who asks first makes no difference for the others with the same ending.
    const QString cmake = info("\\\\NAS\\S\\CMakeLists.txt").typeName;
    EXPECT_EQ(cmake, info("\\\\NAS\\S\\readme.txt").typeName);
    EXPECT_NE(info("a.tar.gz").typeName, info("a.gz").typeName);
    EXPECT_FALSE(info("\\\\NAS\\S\\Makefile").typeName.isEmpty());

    for (const char* unknown : {"", "\\\\NAS\\S\\", "a.qqq", "a.", "a.mp3\\b", "..."}) {
        EXPECT_EQ(info(unknown).iconIndex, 0) << unknown;
        EXPECT_EQ(info(unknown).typeName, QString()) << unknown;
    }
    EXPECT_EQ(info(".mp3").iconIndex, song.iconIndex);
}

} // namespace
} // namespace netrove
