#include "audio/ISMP3Player.h"

#include "audio/MpegStream.h"
#include "fakes/OneFile.h"
#include "fakes/Text.h"
#include "runtime/ExpectRaised.h"
#include "searchrun/columns/AudioColumns.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

const QString Song = Text("\\\\S\\D\\song.mp3");

/// Seconds, kbit/s, Hz.
using Values = std::tuple<int, int, int>;

class AudioHeader : public testing::Test {
protected:
    Values Read(const QByteArray& content) {
        file.content = content;
        file.reads = 0;
        file.bytesRead = 0;
        player.SetMP3FileName(Song);
        EXPECT_LE(file.bytesRead, 64 * 1024);
        return {player.MP3Length(), player.MP3Bitrate(), player.MP3Frequency()};
    }

    OneFile file;
    ISMP3Player player{file};
};

TEST_F(AudioHeader, ConstantRatesOfAllVersionsAndLayers) {
    // Frames of the standards: samples in a frame over frequency is the time of one.
    const struct {
        quint32 header;
        int frames;
        qint64 bytes; ///< all of them
        Values values;
    } cases[] = {
        {0xFFFB9000, 1000, 417'000, {26, 128, 44100}}, // version 1, layer III
        {0xFFFB9200, 1000, 418'000, {26, 128, 44100}}, // padded
        {0xFFFA90C0, 1000, 417'000, {26, 128, 44100}}, // with a checksum, mono
        {0xFFFDA404, 1000, 576'000, {24, 192, 48000}}, // layer II
        {0xFFFFC800, 1000, 576'000, {12, 384, 32000}}, // layer I
        {0xFFF38000, 1000, 208'000, {26, 64, 22050}},  // version 2, layer III
        {0xFFF71400, 1000, 64'000, {16, 32, 24000}},   // layer I
        {0xFFE31800, 1000, 72'000, {72, 8, 8000}},     // version 2.5, layer III
    };
    for (const auto& [header, frames, bytes, values] : cases) {
        const QByteArray stream = MpegFrames(header, frames);
        EXPECT_EQ(stream.size(), bytes) << header;
        EXPECT_EQ(Read(stream), values) << header;
    }
}

TEST_F(AudioHeader, TagsAreSteppedOver) {
    const QByteArray audio = MpegFrames(Mp3Header, 2000);
    for (const QByteArray& before :
         {Id3v2Tag(100), QByteArray(Id3v2Tag(20) + Id3v2Tag(40'000)), QByteArray(20'000, '\xFF'),
          Id3v2Tag(300'000)}) // one tag, two, junk, a cover
        EXPECT_EQ(Read(before + audio), (Values{52, 128, 44100})) << before.size();
    EXPECT_LE(file.reads, 3);
    // Two and a half seconds: those of the tag would make it three.
    Read(MpegFrames(0xFFE31800, 34) + QByteArray("TAG").leftJustified(128, ' '));
    EXPECT_EQ(player.MP3Length(), 2);
}

TEST_F(AudioHeader, TablesOfEncoders) {
    const QByteArray slow = MpegFrames(0xFFFB5000, 3000);
    const auto xing = [](const char* word, std::initializer_list<quint32> numbers) -> QByteArray {
        return QByteArray(word) + BigEndian(numbers);
    };
    const quint32 bytes = 1'000'000;
    const Values average{78, 102, 44100}; // 3000 frames, 1,000,000 bytes
    const Values counted{78, 64, 44100};  // the bit rate of the frames
    const QByteArray table = xing("Xing", {3, 3000, bytes});
    const std::pair<QByteArray, Values> cases[] = {
        {TableFrame(Mp3Header, 36, table), average},
        {TableFrame(0xFFFB90C0, 21, table), average}, // mono
        {TableFrame(0xFFFA9000, 38, table), average}, // with a checksum
        {TableFrame(Mp3Header, 36, QByteArray("VBRI\0\1\0\0\0\0", 10) + BigEndian({bytes, 3000})),
         average},
        {TableFrame(Mp3Header, 36, xing("Info", {3, 3000, bytes})), counted},
        // No numbers; none of the bytes; more frames than there is room for; fewer than the file
        // has, and too few for their bytes; bytes that are too few for the frames.
        {TableFrame(Mp3Header, 36, xing("Xing", {0})), counted},
        {TableFrame(Mp3Header, 36, xing("Xing", {1, 3000})), counted},
        {TableFrame(Mp3Header, 36, xing("Xing", {3, 0xFFFFFFFF, 7})), counted},
        {TableFrame(Mp3Header, 36, xing("Xing", {3, 300, 700'000})), counted},
        {TableFrame(Mp3Header, 36, xing("Xing", {3, 3000, 7})), counted},
    };
    for (const auto& each : cases) {
        const bool isTrusted = each.second == average;
        EXPECT_EQ(Read(each.first + slow + (isTrusted ? slow : QByteArray())), each.second)
            << &each - cases;
        EXPECT_TRUE(!isTrusted || file.reads == 1);
    }
    file.length = 2'000'000'000;
    file.content = TableFrame(Mp3Header, 36, xing("Xing", {1, 40})) + slow;
    player.SetMP3FileName(Song);
    EXPECT_EQ(player.MP3Bitrate(), 64) << "the same of a sparse file";
}

TEST_F(AudioHeader, VaryingRateWithoutATable) {
    // Two seconds of silence, then music: 64, 128 and 320 kbit/s in no order.
    QByteArray stream = MpegFrames(0xFFFB5000, 77);
    quint32 random = 1;
    for (int frame = 0; frame < 4600; ++frame) {
        random = random * 1664525 + 1013904223;
        const quint32 headers[] = {0xFFFB5000, 0xFFFB9000, 0xFFFBE000};
        stream += MpegFrame(headers[(random >> 16) % 3]);
    }
    const auto [seconds, bitrate, frequency] = Read(stream);
    EXPECT_NEAR(seconds, 122, 18);
    EXPECT_NEAR(bitrate, 169, 25);
}

TEST_F(AudioHeader, WhatIsNoAudioGivesZeros) {
    const Values zeros{0, 0, 0};
    Read(MpegFrames(Mp3Header, 100));
    EXPECT_EQ(Read(QByteArray()), zeros) << "the values before are forgotten";
    EXPECT_EQ(Read(QByteArray("ID3")), zeros);
    EXPECT_EQ(Read(Id3v2Tag(5000).left(300)), zeros) << "cut off in its tag";
    EXPECT_EQ(Read(QByteArray(1'000'000, '\xFF')), zeros);
    EXPECT_LE(file.reads, 2);
    EXPECT_EQ(Read(QByteArray(3000, 'x') + MpegFrame(Mp3Header) + QByteArray(3000, 'x')), zeros)
        << "one header alone isn't believed";
    EXPECT_EQ(Read(QByteArray::fromHex("FFFB0000").repeated(1000)), zeros) << "free format";
    Read(MpegFrames(Mp3Header, 100));
    file.canRead = false;
    EXPECT_EQ(Read(MpegFrames(Mp3Header, 100)), zeros) << "can't be read";
    file.canRead = true;
    // A file that claims to be longer than it is.
    file.length = 1'000'000'000;
    EXPECT_EQ(Read(QByteArray("short")), zeros);
}

TEST_F(AudioHeader, EdgesOfTheProperties) {
    file.length = 600'000'000;
    for (const quint32 frames : {1'254'000U, 1'255'000U}) {
        file.content = TableFrame(Mp3Header, 36, QByteArray("Xing") + BigEndian({1, frames})) +
                       MpegFrames(Mp3Header, 100);
        player.SetMP3FileName(Song);
        if (frames > 1'254'000)
            ExpectRaised(ErrorNumber::Overflow, [&] { return player.MP3Length(); });
        EXPECT_TRUE(frames > 1'254'000 || player.MP3Length() == 32758);
        EXPECT_EQ(player.MP3Frequency(), 44100);
    }
    player.SetMP3FileName(QString());
    EXPECT_EQ(player.MP3Length(), 0);

    file.length = -1;
    file.attributes = FileAttribute::Archive | FileAttribute::Offline;
    EXPECT_EQ(Read(MpegFrames(Mp3Header, 100)), (Values{0, 0, 0}));
    EXPECT_EQ(file.reads, 0) << "a file on slow storage isn't opened";
}

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
