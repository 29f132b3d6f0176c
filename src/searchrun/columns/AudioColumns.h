#pragma once

#include "audio/ISMP3Player.h"
#include "platform/Files.h"
#include "platform/ReadAhead.h"
#include "runtime/SourceText.h"

#include <QString>

namespace netrove {

/// Seconds as hours, minutes and seconds of at least two digits each: 00:03:52.
[[nodiscard]] QString FormatPlayTime(qint32 seconds);

/// The texts of the audio columns of a file: a single blank each where it has no such value.
struct AudioTexts {
    QString Length = u" "_s;
    QString Bitrate = u" "_s;   ///< kbit/s
    QString Frequency = u" "_s; ///< Hz
};

/// Makes the audio columns of results, reading the files that are MPEG audio by their extension.
class AudioColumns {
public:
    explicit AudioColumns(FileAccess& files) : player_(files) {}

    /// The columns of the file in `folder` (with its closing "\"), of which `info` is known;
    /// `extension` is in upper case. Only with `includeMP3Info` is a file read; one that can't be
    /// has zeros. Raises ErrorNumber::Overflow for a playing time above 32767 seconds.
    [[nodiscard]] AudioTexts Texts(const QString& folder, const QString& fileName,
                                   const QString& extension, const FileInfo& info,
                                   bool includeMP3Info);

    /// What Texts reads of which files.
    [[nodiscard]] static FileReading Reading(bool includeMP3Info);

    /// Lets go of the last file.
    void ReleaseAudioFile() { player_.SetMP3FileName(QString()); }

private:
    ISMP3Player player_;
};

} // namespace netrove
