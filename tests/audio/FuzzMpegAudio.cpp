#include "audio/ISMP3Player.h"
#include "audio/MpegStream.h"
#include "fakes/Fuzz.h"
#include "fakes/OneFile.h"

namespace netrove {

/// Bytes alone would seldom make two frames that fit: the first byte says how many real ones
/// stand before and behind the others, and whether the file seems longer than it is.
void Fuzz(const QByteArray& input) {
    if (input.isEmpty())
        return;
    const auto how = static_cast<unsigned char>(input[0]);
    const QByteArray bytes = input.mid(1);
    const quint32 header = Mp3Header | (how & 0xC0U);
    OneFile file;
    file.content = MpegFrames(header, how & 3) + bytes + MpegFrames(header, how >> 2 & 3);
    if ((how & 0x10) != 0)
        file.content = TableFrame(header, 36, bytes.left(300)) + file.content;
    if ((how & 0x20) != 0)
        file.length = 5'000'000'000;
    ISMP3Player player(file);
    player.SetMP3FileName(QStringLiteral("song"));
    try {
        Require(player.MP3Length() >= 0);
    } catch (const RunTimeError&) {
    }
    Require(player.MP3Bitrate() >= 0 && player.MP3Frequency() >= 0 && file.bytesRead <= 64 * 1024 &&
            file.reads <= 50);
}

} // namespace netrove
