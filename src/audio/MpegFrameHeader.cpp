#include "audio/MpegFrameHeader.h"

#include <array>

namespace netrove {
namespace {

/// Bit rates in kbit/s by the header's index; 0 is the free format, 15 isn't allowed.
using Bitrates = std::array<int, 15>;
constexpr Bitrates Version1Layer1{0,   32,  64,  96,  128, 160, 192, 224,
                                  256, 288, 320, 352, 384, 416, 448};
constexpr Bitrates Version1Layer2{0,   32,  48,  56,  64,  80,  96, 112,
                                  128, 160, 192, 224, 256, 320, 384};
constexpr Bitrates Version1Layer3{0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr Bitrates Version2Layer1{0,   32,  48,  56,  64,  80,  96, 112,
                                  128, 144, 160, 176, 192, 224, 256};
constexpr Bitrates Version2Layers2And3{0,  8,  16, 24,  32,  40,  48, 56,
                                       64, 80, 96, 112, 128, 144, 160};
/// Frequencies of version 1 in Hz.
constexpr std::array<int, 3> Frequencies{44100, 48000, 32000};

const Bitrates& BitratesOf(MpegVersion version, int layer) {
    if (version != MpegVersion::Version1)
        return layer == 1 ? Version2Layer1 : Version2Layers2And3;
    return layer == 1 ? Version1Layer1 : layer == 2 ? Version1Layer2 : Version1Layer3;
}

int FrequencyOf(MpegVersion version, std::size_t index) {
    switch (version) {
    case MpegVersion::Version1:
        return Frequencies.at(index);
    case MpegVersion::Version2:
        return Frequencies.at(index) / 2;
    case MpegVersion::Version25:
        return Frequencies.at(index) / 4;
    }
    return 0;
}

int SamplesOf(MpegVersion version, int layer) {
    if (layer == 1)
        return 384;
    return layer == 3 && version != MpegVersion::Version1 ? 576 : 1152;
}

qint64 FrameLength(const MpegFrameHeader& header, int bitrate, bool padded) {
    // Layer I counts in slots of four bytes, the other layers in bytes.
    const qint64 slot = header.layer == 1 ? 4 : 1;
    const qint64 slots = qint64{header.samples} / 8 / slot * bitrate * 1000 / header.frequency;
    return (slots + (padded ? 1 : 0)) * slot;
}

std::optional<MpegVersion> VersionOf(quint32 bits) {
    switch (bits) {
    case 0:
        return MpegVersion::Version25;
    case 2:
        return MpegVersion::Version2;
    case 3:
        return MpegVersion::Version1;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<MpegFrameHeader> MpegFrameHeader::Parse(QByteArrayView bytes) {
    if (bytes.size() < Size)
        return std::nullopt;
    const auto byte = [bytes](qsizetype at) { return quint32{static_cast<quint8>(bytes[at])}; };
    if (byte(0) != 0xFF || (byte(1) & 0xE0) != 0xE0)
        return std::nullopt;
    const auto version = VersionOf(byte(1) >> 3 & 3);
    const quint32 layerBits = byte(1) >> 1 & 3;
    const quint32 bitrateIndex = byte(2) >> 4;
    const quint32 frequencyIndex = byte(2) >> 2 & 3;
    const quint32 emphasis = byte(3) & 3;
    if (!version || layerBits == 0 || bitrateIndex == 0 || bitrateIndex == 15 ||
        frequencyIndex == 3 || emphasis == 2)
        return std::nullopt;

    MpegFrameHeader header;
    header.version = *version;
    header.layer = 4 - static_cast<int>(layerBits);
    header.hasChecksum = (byte(1) & 1) == 0;
    header.mono = byte(3) >> 6 == 3;
    header.bitrate = BitratesOf(header.version, header.layer).at(bitrateIndex);
    header.frequency = FrequencyOf(header.version, frequencyIndex);
    header.samples = SamplesOf(header.version, header.layer);
    header.frameLength = netrove::FrameLength(header, header.bitrate, (byte(2) & 2) != 0);
    return header;
}

qint64 MpegFrameHeader::ShortestFrame() const {
    return netrove::FrameLength(*this, BitratesOf(version, layer).at(1), false);
}

qint64 MpegFrameHeader::LongestFrame() const {
    return netrove::FrameLength(*this, BitratesOf(version, layer).back(), true);
}

} // namespace netrove
