#pragma once

#include "audio/MpegFrameHeader.h"

#include <QByteArray>
#include <QtEndian>

#include <vector>

namespace netrove {

/// Version 1, Layer III, 44100 Hz, stereo, 128 kbit/s.
inline constexpr quint32 Mp3Header = 0xFFFB9000;

/// A frame with this header, filled with zeros.
inline QByteArray MpegFrame(quint32 header) {
    QByteArray bytes(4, '\0');
    qToBigEndian(header, bytes.data());
    const auto parsed = MpegFrameHeader::Parse(bytes);
    return parsed ? bytes.leftJustified(parsed->frameLength, '\0') : bytes;
}

inline QByteArray MpegFrames(quint32 header, int count) {
    return MpegFrame(header).repeated(count);
}

inline QByteArray BigEndian(std::initializer_list<quint32> numbers) {
    QByteArray bytes;
    for (const quint32 number : numbers) {
        bytes.append(4, '\0');
        qToBigEndian(number, bytes.data() + bytes.size() - 4);
    }
    return bytes;
}

/// The header's frame with a table of an encoder at `offset`.
inline QByteArray TableFrame(quint32 header, qsizetype offset, const QByteArray& table) {
    return MpegFrame(header).replace(offset, table.size(), table);
}

/// An ID3v2 tag with `size` bytes behind its head, all of them 0xFF, so that it looks like frames.
inline QByteArray Id3v2Tag(quint32 size) {
    QByteArray tag("ID3\x04\0\0", 6);
    for (int shift = 21; shift >= 0; shift -= 7)
        tag.append(static_cast<char>(size >> shift & 0x7F));
    return tag + QByteArray(static_cast<qsizetype>(size), '\xFF');
}

} // namespace netrove
