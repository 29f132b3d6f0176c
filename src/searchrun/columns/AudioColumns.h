#pragma once

#include "audio/ISMP3Player.h"
#include "platform/Files.h"
#include "platform/ReadAhead.h"
#include "runtime/SourceText.h"

#include <QString>

namespace netrove {

/// Seconds as hours, minutes and seconds of at least two digits each: 00:03:52.
[[nodiscard]] QString FormatPlayTime(qint32 seconds);

/// The texts of the audio columns of a file; each is a single blank if the file has no such value.
struct AudioTexts {
    QString Length = u" "_s;
    QString Bitrate = u" "_s;   ///< kbit/s
    QString Frequency = u" "_s; ///< Hz
};

/// Makes the audio columns of results; reads the files whose extension says MPEG audio.
class AudioColumns {
public:
    explicit AudioColumns(FileAccess& files) : player_(files) {}

    /// The columns of the file in `folder` (with its closing "\"); `info` is what is known about
    /// it, `extension` is in upper case. The file is read only with `includeMP3Info`; one that
    /// can't be read has zeros. Raises ErrorNumber::Overflow for a playing time above 32767
    /// seconds.
    [[nodiscard]] AudioTexts Texts(const QString& folder, const QString& fileName,
                                   const QString& extension, const FileInfo& info,
                                   bool includeMP3Info);

    /// What Texts will read, and of which files.
    [[nodiscard]] static FileReading Reading(bool includeMP3Info);

    /// Forgets the last file.
    void ReleaseAudioFile() { player_.SetMP3FileName(QString()); }

private:
    ISMP3Player player_;
};

} // namespace netrove
