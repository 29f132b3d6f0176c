#include "audio/ISMP3Player.h"
#include "audio/MpegStream.h"
#include "fakes/OneFile.h"

#include <cstdint>
#include <cstdlib>

namespace netrove {
namespace {

/// Bytes alone would seldom make two frames that fit: the first byte says how many real ones
/// stand before and behind the others, and whether the file seems longer than it is.
void Fill(OneFile& file, const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1),
                           static_cast<qsizetype>(size - 1));
    const quint32 header = Mp3Header | (data[0] & 0xC0U);
    file.content = MpegFrames(header, data[0] & 3) + bytes + MpegFrames(header, data[0] >> 2 & 3);
    if ((data[0] & 0x10) != 0)
        file.content = TableFrame(header, 36, bytes.left(300)) + file.content;
    if ((data[0] & 0x20) != 0)
        file.length = 5'000'000'000;
}

int TestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    OneFile file;
    Fill(file, data, size);
    ISMP3Player player(file);
    player.SetMP3FileName(QStringLiteral("song"));
    try {
        if (player.MP3Length() < 0)
            std::abort();
    } catch (const RunTimeError&) {
    }
    if (player.MP3Bitrate() < 0 || player.MP3Frequency() < 0 || file.bytesRead > 64 * 1024 ||
        file.reads > 50)
        std::abort();
    return 0;
}

} // namespace
} // namespace netrove

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return netrove::TestOneInput(data, size);
}
