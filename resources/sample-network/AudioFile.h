#pragma once

#include <QByteArray>
#include <QString>

namespace netrove::sample {

enum class MpegVersion { Mpeg1, Mpeg2, Mpeg25 };

/// How the first frame tells the number of frames.
enum class FrameCount {
    None,
    Info, ///< "Info", the mark of a constant bit rate
    Xing, ///< "Xing", the mark of a variable one
    Vbri, ///< "VBRI", another mark of a variable one
};

/// The form of an MPEG audio stream (ISO/IEC 11172-3, 13818-3).
struct AudioForm {
    MpegVersion version = MpegVersion::Mpeg1;
    int layer = 3;
    int kilobits = 128; ///< a second; with a variable rate the middle one
    int hertz = 44100;
    bool mono = false;
    bool variable = false;
    FrameCount count = FrameCount::None;
};

/// A tag before the stream (ID3v2.3).
struct AudioTag {
    QString title;
    QString artist;
    QString album;
    QByteArray cover; ///< a JPEG picture; may be empty
};

/// Silence of that form: whole frames whose number is what the first frame says and whose
/// headers agree with their lengths. Only bit rates that the form has may be asked for.
[[nodiscard]] QByteArray AudioStream(const AudioForm& form, int frames);

/// Frames that make up this many seconds.
[[nodiscard]] int FramesOf(const AudioForm& form, int seconds);

[[nodiscard]] QByteArray TagBytes(const AudioTag& tag);

} // namespace netrove::sample
