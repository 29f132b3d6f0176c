#include "mainwindow/services/Paths.h"

#include "fakes/Text.h"
#include "mainwindow/services/CompactPath.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(Paths, Extensions) {
    const struct {
        const char* path;
        const char* extension;
    } cases[] = {{"\\\\S\\D\\song.mp3", "MP3"},     {"a.tar.gz", "GZ"},
                 {"\\\\S\\D.OLD\\readme", ""},      {"\\\\S\\D\\ends in.", ""},
                 {"\\\\S\\D\\.profile", "PROFILE"}, {"plain", ""}};
    for (const auto& [path, extension] : cases)
        EXPECT_EQ(FileExtension(Text(path)), Text(extension)) << path;
}

TEST(Paths, SuffixesAndNames) {
    EXPECT_EQ(EnsureSuffix(QString(), Text("\\")), Text("\\"));
    EXPECT_EQ(EnsureSuffix(Text("A\\"), Text("\\")), Text("A\\"));
    EXPECT_EQ(EnsureSuffix(Text("a.NRR"), Text(".nrr")), Text("a.NRR.nrr")) << "case counts";
    for (const char* name : {"\\\\MEDIA", "a/b", "a:", "*", "?", "\"", "<", ">", "|"})
        EXPECT_TRUE(HasIllegalNameChars(Text(name))) << name;
    for (const char* name : {"", "MEDIA-1", "My net & more"})
        EXPECT_FALSE(HasIllegalNameChars(Text(name))) << name;
}

/// Columns of a terminal: one a unit.
int Columns(const QString& text) {
    return static_cast<int>(text.size());
}

TEST(Paths, CompactedToAWidth) {
    const struct {
        const char* path;
        int width;
        const char* compact;
    } cases[] = {
        {"\\\\SERVER\\SHARE\\OLD\\FILE", 23, "\\\\SERVER\\SHARE\\OLD\\FILE"},
        {"\\\\SERVER\\SHARE\\OLDER\\FILE", 23, "\\\\SERVER\\SHARE\\...\\FILE"},
        {"\\\\SERVER\\SHARE\\OLDER\\FILE", 12, "\\\\SE...\\FILE"},
        {"\\\\SERVER\\SHARE\\OLDER\\FILE", 8, "...\\FILE"},
        {"\\\\SERVER\\SHARE\\OLDER\\FILE", 7, "FILE..."},
        {"\\\\SERVER\\SHARE\\OLDER\\FILE", 5, "FI..."},
        {"\\\\SERVER\\SHARE\\FOLDER\\", 19, "\\\\SERVER...\\FOLDER\\"},
        {"Microsoft Windows Network", 12, "Microsoft..."},
        {"\\\\SERVER", 6, "SER..."},
        {"plain", 2, ".."},
        {"plain", 0, ""},
        {"", 0, ""},
    };
    for (const auto& [path, width, compact] : cases)
        EXPECT_EQ(CompactPath(Text(path), width, Columns), Text(compact)) << path << ' ' << width;

    const QString notes = Text("\\\\S\\🎵🎵🎵🎵\\🎵🎵🎵🎵🎵🎵");
    for (int width = 0; width <= Columns(notes); ++width) {
        const QString compact = CompactPath(notes, width, Columns);
        EXPECT_LE(Columns(compact), width);
        EXPECT_TRUE(compact.isValidUtf16()) << "half a character at " << width;
    }
}

} // namespace
} // namespace netrove
