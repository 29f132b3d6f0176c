#pragma once

#include <QByteArrayView>

#include <optional>

namespace netrove {

enum class MpegVersion { Version1, Version2, Version25 };

/// The four bytes that begin each frame of MPEG audio (ISO/IEC 11172-3, 2.4.1.3, and 13818-3;
/// version 2.5 halves the frequencies of version 2 once more).
struct MpegFrameHeader {
    MpegVersion version = MpegVersion::Version1;
    int layer = 3; ///< 1 to 3
    bool hasChecksum = false;
    bool mono = false;
    int bitrate = 0;        ///< kbit/s
    int frequency = 0;      ///< Hz
    qint64 frameLength = 0; ///< bytes, this header included
    int samples = 0;        ///< of one channel, in a frame

    static constexpr qsizetype Size = 4;

    /// Nothing if the bytes aren't such a header. Frames of the "free" format are not accepted, as
    /// their headers don't tell their length.
    [[nodiscard]] static std::optional<MpegFrameHeader> Parse(QByteArrayView bytes);

    /// Whether both can belong to one stream: all but bit rate and channels is the same.
    [[nodiscard]] bool SameStream(const MpegFrameHeader& other) const {
        return version == other.version && layer == other.layer && frequency == other.frequency;
    }

    /// Bytes of the shortest and of the longest frame that such a stream can have.
    [[nodiscard]] qint64 ShortestFrame() const;
    [[nodiscard]] qint64 LongestFrame() const;
};

} // namespace netrove
