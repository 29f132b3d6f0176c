#pragma once

#include "platform/Files.h"

#include <QString>

namespace netrove {

/// Reads playing time, bit rate and frequency of a file of MPEG audio (versions 1, 2 and 2.5,
/// Layers I to III) from a few pieces of it: two for most files, 64 KiB at most. An ID3v2 tag is
/// skipped, however large it is. If the bit rate varies and there is no encoder's table, the values
/// are estimated from the frames in three places of the stream.
class ISMP3Player {
public:
    explicit ISMP3Player(FileAccess& files) : files_(files) {}

    /// Reads the file; afterwards the values describe it. They are 0 if it holds no such audio or
    /// can't be read, for an empty name, and for a file on slow storage, which isn't read.
    void SetMP3FileName(const QString& path);
    /// The same for a caller that has the file's data already.
    void SetMP3FileName(const QString& path, const FileInfo& info);

    /// Playing time in whole seconds, rounded. Raises ErrorNumber::Overflow above 32767.
    [[nodiscard]] qint16 MP3Length() const;
    /// Bit rate in kbit/s; the average where it varies.
    [[nodiscard]] qint32 MP3Bitrate() const { return bitrate_; }
    /// Sampling frequency in Hz.
    [[nodiscard]] qint32 MP3Frequency() const { return frequency_; }

private:
    void Clear();
    void ReadValues(const QString& path, qint64 length);

    FileAccess& files_;
    qint64 seconds_ = 0;
    qint32 bitrate_ = 0;
    qint32 frequency_ = 0;
};

} // namespace netrove
