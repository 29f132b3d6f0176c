#include "searchrun/columns/AudioColumns.h"

#include "audio/MpegStream.h"
#include "fakes/OneFile.h"
#include "fakes/Text.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(AudioColumns, PlayTimes) {
    for (const auto& [seconds, text] :
         {std::pair(0, "00:00:00"), std::pair(3725, "01:02:05"), std::pair(400'000, "111:06:40")})
        EXPECT_EQ(FormatPlayTime(seconds), Text(text));
}

TEST(AudioColumns, OnlyAudioIsRead) {
    OneFile file;
    file.content = MpegFrames(Mp3Header, 1000);
    AudioColumns columns(file);
    const auto texts = [&](const char* extension, bool include) {
        const AudioTexts of = columns.Texts(Text("\\\\S\\D\\"), Text("song"), Text(extension),
                                            file.Info(Text("song")), include);
        return QStringList{of.Length, of.Bitrate, of.Frequency}.join(u'|');
    };
    EXPECT_EQ(texts("MP3", false), Text(" | | "));
    for (const char* other : {"WAV", "mp3"}) // extensions come in upper case
        EXPECT_EQ(texts(other, true), Text(" | | "));
    EXPECT_EQ(file.reads, 0);
    for (const char* extension : {"MP3", "MP2", "MP1"})
        EXPECT_EQ(texts(extension, true), Text("00:00:26|128|44100")) << extension;
    file.canRead = false;
    EXPECT_EQ(texts("MP3", true), Text("00:00:00|0|0"));
}

} // namespace
} // namespace netrove
