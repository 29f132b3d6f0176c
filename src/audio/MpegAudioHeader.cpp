#include "audio/MpegAudioHeader.h"

#include <QtEndian>

#include <algorithm>

namespace netrove {
namespace {

constexpr qsizetype Id3v2HeaderSize = 10;
constexpr qsizetype Id3v1TagSize = 128;

/// The bytes from `at` on; none if `at` lies outside.
QByteArrayView From(QByteArrayView bytes, qint64 at) {
    return at >= 0 && at < bytes.size() ? bytes.sliced(at) : QByteArrayView();
}

qint64 Number(QByteArrayView bytes, qsizetype at) {
    return bytes.size() < at + 4 ? 0 : qint64{qFromBigEndian<quint32>(bytes.data() + at)};
}

std::optional<MpegFrameHeader> FittingHeader(QByteArrayView bytes, const MpegFrameHeader& like) {
    const auto header = MpegFrameHeader::Parse(bytes);
    return header && header->SameStream(like) ? header : std::nullopt;
}

/// Where a "Xing" or "Info" table stands in a frame: behind the side information.
qint64 XingOffset(const MpegFrameHeader& frame) {
    const bool version1 = frame.version == MpegVersion::Version1;
    const qint64 sideInformation = version1 ? (frame.mono ? 17 : 32) : (frame.mono ? 9 : 17);
    return MpegFrameHeader::Size + sideInformation;
}

void ReadXing(QByteArrayView table, MpegAudioHeader& header) {
    constexpr qint64 hasFrames = 1;
    constexpr qint64 hasBytes = 2;
    header.hasTable = true;
    header.constantBitrate = table.startsWith("Info");
    const qint64 flags = Number(table, 4);
    qsizetype at = 8;
    if ((flags & hasFrames) != 0) {
        header.frames = Number(table, at);
        at += 4;
    }
    if ((flags & hasBytes) != 0)
        header.bytes = Number(table, at);
}

void ReadVbri(QByteArrayView table, MpegAudioHeader& header) {
    header.hasTable = true;
    header.bytes = Number(table, 10);
    header.frames = Number(table, 14);
}

void ReadTable(QByteArrayView bytes, MpegAudioHeader& header) {
    if (header.frame.layer != 3)
        return;
    const QByteArrayView frame =
        bytes.sliced(header.begin)
            .first(std::min<qint64>(header.frame.frameLength, bytes.size() - header.begin));
    // Some encoders leave room for the two bytes of a checksum, some don't.
    for (const qint64 checksum : {0, 2}) {
        const QByteArrayView table = From(frame, XingOffset(header.frame) + checksum);
        if (table.startsWith("Xing") || table.startsWith("Info")) {
            ReadXing(table, header);
            return;
        }
        if (!header.frame.hasChecksum)
            break;
    }
    constexpr qint64 vbriOffset = MpegFrameHeader::Size + 32;
    if (const QByteArrayView table = From(frame, vbriOffset); table.startsWith("VBRI"))
        ReadVbri(table, header);
}

} // namespace

std::optional<MpegAudioHeader> MpegAudioHeader::Find(QByteArrayView bytes, bool endOfFile) {
    for (qsizetype at = bytes.indexOf('\xFF'); at >= 0; at = bytes.indexOf('\xFF', at + 1)) {
        const auto frame = MpegFrameHeader::Parse(bytes.sliced(at));
        if (!frame)
            continue;
        const QByteArrayView next = From(bytes, at + frame->frameLength);
        const bool last = next.size() < MpegFrameHeader::Size;
        if (last ? at > 0 || !endOfFile : !FittingHeader(next, *frame))
            continue;
        MpegAudioHeader header{.begin = at, .frame = *frame};
        ReadTable(bytes, header);
        return header;
    }
    return std::nullopt;
}

void MpegFrameRun::Add(QByteArrayView bytes, const MpegFrameHeader& like) {
    const auto first = MpegAudioHeader::Find(bytes, true);
    if (!first || !first->frame.SameStream(like))
        return;
    qint64 at = first->begin;
    while (const auto header = FittingHeader(From(bytes, at), like)) {
        lowest_ = frames_ == 0 ? header->bitrate : std::min(lowest_, header->bitrate);
        highest_ = std::max(highest_, header->bitrate);
        bytes_ += header->frameLength;
        at += header->frameLength;
        ++frames_;
    }
}

qint64 Id3v2Size(QByteArrayView bytes) {
    if (bytes.size() < Id3v2HeaderSize || !bytes.startsWith("ID3"))
        return 0;
    constexpr quint8 hasFooter = 0x10;
    qint64 size = 0;
    for (qsizetype at = 6; at < Id3v2HeaderSize; ++at) {
        const auto byte = static_cast<quint8>(bytes[at]);
        if (byte >= 0x80)
            return 0;
        size = size << 7 | byte;
    }
    const bool footer = (static_cast<quint8>(bytes[5]) & hasFooter) != 0;
    return Id3v2HeaderSize + size + (footer ? Id3v2HeaderSize : 0);
}

qint64 Id3v1Size(QByteArrayView bytes) {
    return bytes.size() >= Id3v1TagSize && bytes.last(Id3v1TagSize).startsWith("TAG") ? Id3v1TagSize
                                                                                      : 0;
}

} // namespace netrove
