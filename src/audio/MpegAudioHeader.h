#pragma once

#include "audio/MpegFrameHeader.h"

#include <QByteArrayView>

#include <optional>

namespace netrove {

/// What the beginning of an audio stream tells about the whole: its first frame, and the table of
/// numbers that encoders put there ("Xing", "Info" or "VBRI").
struct MpegAudioHeader {
    qint64 begin = 0; ///< offset of the first frame in the bytes that were searched
    MpegFrameHeader frame = {};
    bool hasTable = false;        ///< the first frame holds the table and no sound
    bool constantBitrate = false; ///< the encoder says so
    qint64 frames = 0;            ///< with sound, in the whole stream; 0: not told
    qint64 bytes = 0;             ///< of the whole stream; 0: not told

    /// Looks for the first frame. What looks like one counts if a fitting header follows where it
    /// ends; at the very beginning of `bytes`, the file may end there instead (`endOfFile`).
    [[nodiscard]] static std::optional<MpegAudioHeader> Find(QByteArrayView bytes, bool endOfFile);

    /// The offset at which the sound begins, counted like `begin`.
    [[nodiscard]] qint64 SoundBegin() const { return begin + (hasTable ? frame.frameLength : 0); }
};

/// Statistics of frames that follow each other, from one or more places of a stream.
class MpegFrameRun {
public:
    /// Adds the frames from the first one in `bytes` on, until one doesn't fit `like`.
    void Add(QByteArrayView bytes, const MpegFrameHeader& like);

    [[nodiscard]] qint64 Frames() const { return frames_; }
    [[nodiscard]] qint64 Bytes() const { return bytes_; }
    /// Whether all frames of both have the same bit rate.
    [[nodiscard]] bool SameRate(const MpegFrameRun& other) const {
        return lowest_ == highest_ && lowest_ == other.lowest_ && highest_ == other.highest_;
    }
    [[nodiscard]] int HighestBitrate() const { return highest_; } ///< kbit/s

private:
    qint64 frames_ = 0;
    qint64 bytes_ = 0;
    int lowest_ = 0;
    int highest_ = 0;
};

/// The size of the ID3v2 tag at the beginning of `bytes` (id3.org, "ID3 tag version 2.4.0", 3.1), 0
/// if there is none.
[[nodiscard]] qint64 Id3v2Size(QByteArrayView bytes);

/// The size of an ID3v1 tag at the end of `bytes`, 0 if there is none.
[[nodiscard]] qint64 Id3v1Size(QByteArrayView bytes);

} // namespace netrove
