#include "AudioFile.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace netrove::sample {
namespace {

using BitRates = std::array<int, 15>;

constexpr BitRates Mpeg1Layer1 = {0,   32,  64,  96,  128, 160, 192, 224,
                                  256, 288, 320, 352, 384, 416, 448};
constexpr BitRates Mpeg1Layer2 = {0,   32,  48,  56,  64,  80,  96, 112,
                                  128, 160, 192, 224, 256, 320, 384};
constexpr BitRates Mpeg1Layer3 = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr BitRates Mpeg2Layer1 = {0,   32,  48,  56,  64,  80,  96, 112,
                                  128, 144, 160, 176, 192, 224, 256};
constexpr BitRates Mpeg2Layer23 = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};

const BitRates& RatesOf(const AudioForm& form) {
    if (form.version == MpegVersion::Mpeg1) {
        if (form.layer == 1)
            return Mpeg1Layer1;
        return form.layer == 2 ? Mpeg1Layer2 : Mpeg1Layer3;
    }
    return form.layer == 1 ? Mpeg2Layer1 : Mpeg2Layer23;
}

/// The frequencies of a version, in the order of their numbers in a header.
std::array<int, 3> FrequenciesOf(MpegVersion version) {
    switch (version) {
    case MpegVersion::Mpeg1:
        return {44100, 48000, 32000};
    case MpegVersion::Mpeg2:
        return {22050, 24000, 16000};
    case MpegVersion::Mpeg25:
        return {11025, 12000, 8000};
    }
    return {};
}

template <typename List>
int NumberOf(const List& list, int value) {
    const auto found = std::ranges::find(list, value);
    if (found == list.end())
        throw std::invalid_argument("no such rate in this form");
    return static_cast<int>(found - list.begin());
}

int SamplesPerFrame(const AudioForm& form) {
    if (form.layer == 1)
        return 384;
    return form.layer == 3 && form.version != MpegVersion::Mpeg1 ? 576 : 1152;
}

/// Bytes of the smallest unit that a frame is padded with.
int SlotBytes(const AudioForm& form) {
    return form.layer == 1 ? 4 : 1;
}

quint32 Header(const AudioForm& form, int rateNumber, bool padded) {
    constexpr quint32 sync = 0xFFE00000;
    constexpr quint32 noChecksum = 1U << 16;
    const quint32 version = form.version == MpegVersion::Mpeg1   ? 3
                            : form.version == MpegVersion::Mpeg2 ? 2
                                                                 : 0;
    const quint32 mode = form.mono ? 3 : 0;
    return sync | version << 19 | static_cast<quint32>(4 - form.layer) << 17 | noChecksum |
           static_cast<quint32>(rateNumber) << 12 |
           static_cast<quint32>(NumberOf(FrequenciesOf(form.version), form.hertz)) << 10 |
           (padded ? 1U << 9 : 0) | mode << 6;
}

/// Makes frame after frame, padding them so that the bit rate comes out right.
class FrameMaker {
public:
    explicit FrameMaker(const AudioForm& form)
        : form_(form), middle_(NumberOf(RatesOf(form), form.kilobits)) {}

    QByteArray Next() {
        const int rateNumber = form_.variable ? middle_ + number_ % 3 - 1 : middle_;
        ++number_;
        const int bits = SamplesPerFrame(form_) * RatesOf(form_).at(std::size_t(rateNumber)) * 1000;
        const int slotBits = 8 * SlotBytes(form_) * form_.hertz;
        rest_ += bits % slotBits;
        const bool padded = rest_ >= slotBits;
        rest_ -= padded ? slotBits : 0;
        QByteArray frame((bits / slotBits + (padded ? 1 : 0)) * SlotBytes(form_), '\0');
        qToBigEndian(Header(form_, rateNumber, padded), frame.data());
        return frame;
    }

private:
    AudioForm form_;
    int middle_;
    int number_ = 0;
    int rest_ = 0; ///< bits that whole slots couldn't take, times the frequency
};

template <typename Number>
void Put(QByteArray& bytes, qsizetype at, Number number) {
    qToBigEndian(number, bytes.data() + at);
}

void PutXing(QByteArray& first, const AudioForm& form, int frames, quint32 streamBytes) {
    const bool mpeg1 = form.version == MpegVersion::Mpeg1;
    const qsizetype sideInformation = mpeg1 ? (form.mono ? 17 : 32) : (form.mono ? 9 : 17);
    const qsizetype at = 4 + sideInformation;
    constexpr quint32 countAndBytes = 3;
    first.replace(at, 4, form.count == FrameCount::Info ? "Info" : "Xing");
    Put(first, at + 4, countAndBytes);
    Put(first, at + 8, static_cast<quint32>(frames));
    Put(first, at + 12, streamBytes);
}

void PutVbri(QByteArray& first, int frames, quint32 streamBytes) {
    constexpr qsizetype at = 4 + 32;
    first.replace(at, 4, "VBRI");
    Put(first, at + 4, quint16{1}); // version
    Put(first, at + 10, streamBytes);
    Put(first, at + 14, static_cast<quint32>(frames));
    Put(first, at + 20, quint16{1}); // scale of a table without entries
    Put(first, at + 22, quint16{2});
    Put(first, at + 24, static_cast<quint16>(frames));
}

/// Seven bits a byte, as lengths in a tag are written.
QByteArray SyncSafe(qsizetype number) {
    QByteArray bytes;
    for (int shift = 21; shift >= 0; shift -= 7)
        bytes += static_cast<char>((number >> shift) & 0x7F);
    return bytes;
}

QByteArray TagFrame(const char* name, const QByteArray& content) {
    QByteArray frame(name);
    frame.resize(8);
    Put(frame, 4, static_cast<quint32>(content.size()));
    return frame + QByteArray(2, '\0') + content;
}

QByteArray TextFrame(const char* name, const QString& text) {
    constexpr char utf16 = 1;
    QByteArray content(1, utf16);
    content += "\xFF\xFE";
    for (const QChar unit : text) {
        content += static_cast<char>(unit.unicode() & 0xFF);
        content += static_cast<char>(unit.unicode() >> 8);
    }
    return TagFrame(name, content);
}

} // namespace

QByteArray AudioStream(const AudioForm& form, int frames) {
    FrameMaker maker(form);
    QByteArray first = form.count == FrameCount::None ? QByteArray() : maker.Next();
    QByteArray stream;
    for (int number = 0; number < frames; ++number)
        stream += maker.Next();
    const auto streamBytes = static_cast<quint32>(first.size() + stream.size());
    if (form.count == FrameCount::Vbri)
        PutVbri(first, frames, streamBytes);
    else if (form.count != FrameCount::None)
        PutXing(first, form, frames, streamBytes);
    return first + stream;
}

int FramesOf(const AudioForm& form, int seconds) {
    return seconds * form.hertz / SamplesPerFrame(form);
}

QByteArray TagBytes(const AudioTag& tag) {
    QByteArray frames =
        TextFrame("TIT2", tag.title) + TextFrame("TPE1", tag.artist) + TextFrame("TALB", tag.album);
    if (!tag.cover.isEmpty()) {
        constexpr char frontCover = 3;
        frames += TagFrame("APIC", QByteArray(1, '\0') + "image/jpeg" + '\0' + frontCover + '\0' +
                                       tag.cover);
    }
    return QByteArrayLiteral("ID3\x03\x00\x00") + SyncSafe(frames.size()) + frames;
}

} // namespace netrove::sample
