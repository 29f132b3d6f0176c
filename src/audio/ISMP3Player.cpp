#include "audio/ISMP3Player.h"

#include "audio/MpegAudioHeader.h"
#include "runtime/RunTimeError.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace netrove {
namespace {

/// Bytes that are read of one file at most: a file that only looks like audio isn't downloaded.
constexpr qint64 MostBytes = 64 * 1024;
/// The piece where the audio should begin.
constexpr qint64 FirstPiece = 16 * 1024;
/// A piece from further on in the stream: MostBytes leaves room for three of them.
constexpr qint64 SamplePiece = FirstPiece;

/// A file that is read in pieces, of which never more than MostBytes are read.
class PiecewiseFile {
public:
    PiecewiseFile(FileAccess& files, const QString& path, qint64 length)
        : files_(files), path_(path), length_(length) {}

    [[nodiscard]] qint64 Length() const { return length_; }

    [[nodiscard]] QByteArray Read(qint64 offset, qint64 length) {
        length = std::min({length, left_, length_ - offset});
        if (length <= 0)
            return QByteArray();
        left_ -= length;
        return files_.Read(path_, offset, length).left(length);
    }

private:
    FileAccess& files_;
    const QString& path_;
    qint64 length_;
    qint64 left_ = MostBytes;
};

/// The beginning of the audio and what was read there.
struct Beginning {
    qint64 offset = 0; ///< of the piece in the file
    QByteArray piece = {};
    std::optional<MpegAudioHeader> header = {};

    [[nodiscard]] bool ReachesEnd(const PiecewiseFile& file) const {
        return offset + piece.size() >= file.Length();
    }
};

Beginning FindBeginning(PiecewiseFile& file) {
    Beginning found{.offset = 0, .piece = file.Read(0, FirstPiece)};
    while (const qint64 tag = Id3v2Size(found.piece)) {
        found.offset += tag;
        if (tag < found.piece.size() / 2)
            found.piece = found.piece.mid(tag);
        else
            found.piece = file.Read(found.offset, FirstPiece);
    }
    found.header = MpegAudioHeader::Find(found.piece, found.ReachesEnd(file));
    if (!found.header && !found.ReachesEnd(file)) {
        found.piece += file.Read(found.offset + found.piece.size(), MostBytes);
        found.header = MpegAudioHeader::Find(found.piece, found.ReachesEnd(file));
    }
    return found;
}

struct Estimate {
    double seconds = 0;
    double bitrate = 0; ///< kbit/s
};

double Kilobits(qint64 bytes) {
    return static_cast<double>(bytes) * 8 / 1000;
}

/// The bytes that a table's frames take: those that the table gives, else all of the file's audio.
/// Nothing if so many frames can't fill either: then the table is wrong.
std::optional<qint64> TableBytes(const MpegAudioHeader& header, qint64 audioBytes) {
    const qint64 least = header.frames * header.frame.ShortestFrame();
    // The frame that holds the table may have been counted or not.
    const qint64 most = (header.frames + 1) * header.frame.LongestFrame();
    for (const qint64 bytes : {std::min(header.bytes, audioBytes), audioBytes}) {
        if (header.frames > 0 && least <= bytes && bytes <= most)
            return bytes;
    }
    return std::nullopt;
}

Estimate FromTable(const MpegAudioHeader& header, QByteArrayView piece, qint64 tableBytes) {
    Estimate estimate;
    estimate.seconds =
        static_cast<double>(header.frames * header.frame.samples) / header.frame.frequency;
    estimate.bitrate = Kilobits(tableBytes) / estimate.seconds;
    if (header.constantBitrate && header.SoundBegin() < piece.size()) {
        if (const auto next = MpegFrameHeader::Parse(piece.sliced(header.SoundBegin())))
            estimate.bitrate = next->bitrate;
    }
    return estimate;
}

Estimate FromConstantRate(int bitrate, qint64 audioBytes) {
    return {.seconds = Kilobits(audioBytes) / bitrate, .bitrate = static_cast<double>(bitrate)};
}

Estimate FromVaryingRate(const MpegFrameRun& run, const MpegFrameHeader& frame, qint64 audioBytes) {
    const double frames = static_cast<double>(audioBytes) * static_cast<double>(run.Frames()) /
                          static_cast<double>(run.Bytes());
    const double seconds = frames * frame.samples / frame.frequency;
    return {.seconds = seconds, .bitrate = Kilobits(audioBytes) / seconds};
}

Estimate FromFrames(const Beginning& beginning, PiecewiseFile& file, qint64 audioBytes) {
    const MpegAudioHeader& header = *beginning.header;
    const MpegFrameHeader& frame = header.frame;
    MpegFrameRun first;
    if (header.SoundBegin() < beginning.piece.size())
        first.Add(QByteArrayView(beginning.piece).sliced(header.SoundBegin()), frame);
    if (first.Frames() == 0)
        return FromConstantRate(frame.bitrate, audioBytes);

    // The first piece may be a silence that tells little about the rest, so the middle is looked
    // at, too; if the bit rate varies, so are two more pieces of the same size.
    MpegFrameRun spread;
    if (!beginning.ReachesEnd(file)) {
        const qint64 begin = file.Length() - audioBytes;
        spread.Add(file.Read(begin + audioBytes / 2, SamplePiece), frame);
        if (!first.SameRate(spread)) {
            for (const qint64 quarter : {1, 3})
                spread.Add(file.Read(begin + audioBytes / 4 * quarter, SamplePiece), frame);
        }
    }
    if (spread.Frames() == 0)
        spread = first;
    return first.SameRate(spread) ? FromConstantRate(first.HighestBitrate(), audioBytes)
                                  : FromVaryingRate(spread, frame, audioBytes);
}

} // namespace

void ISMP3Player::SetMP3FileName(const QString& path) {
    Clear();
    try {
        if (!path.isEmpty())
            SetMP3FileName(path, files_.Info(path));
    } catch (const RunTimeError&) {
        // The values are 0.
    }
}

void ISMP3Player::SetMP3FileName(const QString& path, const FileInfo& info) {
    Clear();
    try {
        if ((info.attributes & FileAttribute::Offline) == 0)
            ReadValues(path, info.length);
    } catch (const RunTimeError&) {
        // The values are 0: ReadValues sets them last.
    }
}

void ISMP3Player::Clear() {
    seconds_ = 0;
    bitrate_ = 0;
    frequency_ = 0;
}

void ISMP3Player::ReadValues(const QString& path, qint64 length) {
    PiecewiseFile file(files_, path, length);
    const Beginning beginning = FindBeginning(file);
    if (!beginning.header)
        return;
    const MpegAudioHeader& header = *beginning.header;
    qint64 audioBytes = file.Length() - beginning.offset - header.begin;
    if (beginning.ReachesEnd(file))
        audioBytes -= Id3v1Size(beginning.piece);

    const auto tableBytes = TableBytes(header, audioBytes);
    const Estimate estimate = tableBytes ? FromTable(header, beginning.piece, *tableBytes)
                                         : FromFrames(beginning, file, audioBytes);
    seconds_ = std::llround(estimate.seconds);
    bitrate_ = static_cast<qint32>(std::lround(estimate.bitrate));
    frequency_ = header.frame.frequency;
}

qint16 ISMP3Player::MP3Length() const {
    if (seconds_ > std::numeric_limits<qint16>::max())
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<qint16>(seconds_);
}

} // namespace netrove
