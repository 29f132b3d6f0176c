#pragma once

#include "audio/MpegFrameHeader.h"

#include <QByteArrayView>

#include <optional>

namespace netrove {

/// What the beginning of an audio stream tells of the whole: its first frame, and the numbers
/// that encoders put there ("Xing", "Info" and "VBRI").
struct MpegAudioHeader {
    qint64 begin = 0; ///< where the first frame stands in the bytes that were searched
    MpegFrameHeader frame = {};
    bool hasTable = false;        ///< the first frame holds numbers and no sound
    bool constantBitrate = false; ///< said by the encoder
    qint64 frames = 0;            ///< with sound, in the whole stream; 0 where it isn't told
    qint64 bytes = 0;             ///< of the whole stream; 0 where it isn't told

    /// Looks for the first frame. It is taken for one if a fitting header follows where it ends;
    /// a frame at the very beginning of `bytes` may also be the last of the file.
    [[nodiscard]] static std::optional<MpegAudioHeader> Find(QByteArrayView bytes, bool endOfFile);

    /// Where the sound begins, by the same count as `begin`.
    [[nodiscard]] qint64 SoundBegin() const { return begin + (hasTable ? frame.frameLength : 0); }
};

/// Frames that were looked at one after another, in one or more places of a stream.
class MpegFrameRun {
public:
    /// Goes from frame to frame, from the first that fits `like` on, for as long as they fit.
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

/// The size of the ID3v2 tag that stands at the beginning of `bytes` (id3.org, "ID3 tag version
/// 2.4.0", 3.1), 0 if there is none.
[[nodiscard]] qint64 Id3v2Size(QByteArrayView bytes);

/// The size of an ID3v1 tag at the end of `bytes`, 0 if there is none.
[[nodiscard]] qint64 Id3v1Size(QByteArrayView bytes);

} // namespace netrove
