#include "mainwindow/services/FileDetails.h"

#include "fakes/OneFile.h"
#include "fakes/Text.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(FileDetails, TextsOfAFile) {
    OneFile file;
    file.length = 1'500'000;
    file.attributes = 1 | 2 | 4 | 16 | 32 | 0x800;
    const FileDetails details(Text("\\\\S\\D\\OLD\\a.b.TXT"), file, Settings());
    EXPECT_EQ(details.Folder, Text("\\\\S\\D\\OLD\\"));
    EXPECT_EQ(details.FileName, Text("a.b.TXT"));
    EXPECT_EQ(details.DateText, Text("02/03/20"));
    EXPECT_EQ(details.DateKey, Text("20200203040506"));
    EXPECT_EQ(details.SizeText, Text("1.4305"));
    EXPECT_EQ(details.SizeKey, Text("0001.4305000000"));
    EXPECT_EQ(details.AttrText, Text("RHSA"));

    const FileDetails bare(Text("README"), file, Settings());
    EXPECT_EQ(bare.Folder, Text("\\"));
    EXPECT_TRUE(bare.FileName.isEmpty());

    const FileDetails gone(Text("\\\\S\\D\\gone"), file, Settings());
    EXPECT_TRUE(gone.Folder.isEmpty() && gone.FileName.isEmpty() && gone.DateText.isEmpty() &&
                gone.DateKey.isEmpty() && gone.AttrText.isEmpty());
    EXPECT_EQ(gone.SizeText, Text("0"));
    EXPECT_EQ(gone.SizeKey, Text("0"));
}

TEST(FileDetails, SizesByTheSettings) {
    const struct {
        qint64 bytes;
        qint16 format;
        qint16 decimals;
        const char* text;
        const char* key;
    } cases[] = {
        {0, 1, 2, "0.00", "0000.0000000000"},
        {1'500'000, 1, 0, "1", "0001.0000000000"},
        {1'500'000, 7, 0, "1", "0001.0000000000"}, // any other format is megabytes
        {1, 2, 4, "0.0010", "0000000.0010000000"},
        {1536, 2, 0, "2", "0000002.0000000000"},
        {1536, 2, 10, "1.5000000000", "0000001.5000000000"},
        {1'500'000, 3, 4, "1500000", "0001500000"},
        {5'000'000'000, 3, 4, "5000000000", "5000000000"}, // beyond 32 bits
        {5'000'000'000, 1, 4, "4768.3716", "4768.3716000000"},
        // Longer than the key is wide: the letter sorts them behind all that fit.
        {12'884'901'888, 1, 2, "12288.00", "A12288.0000000000"},
        {20'000'000'000, 3, 0, "20000000000", "A20000000000"},
    };
    OneFile file;
    Settings settings;
    for (const auto& [bytes, format, decimals, text, key] : cases) {
        file.length = bytes;
        settings.SizeFormat = format;
        settings.SizeNumDec = decimals;
        const FileDetails details(Text("\\\\S\\D\\f"), file, settings);
        EXPECT_EQ(details.SizeText, Text(text));
        EXPECT_EQ(details.SizeKey, Text(key));
    }
}

} // namespace
} // namespace netrove
