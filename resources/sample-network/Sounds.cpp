#include "Sounds.h"

#include <QtEndian>

#include <cmath>
#include <numbers>

namespace netrove::sample {
namespace {

constexpr quint32 SamplesPerSecond = 8000;

template <typename Number>
QByteArray LittleEndian(Number number) {
    QByteArray bytes(sizeof(number), '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

QByteArray Chunk(const char* name, const QByteArray& content) {
    return QByteArray(name) + LittleEndian(static_cast<quint32>(content.size())) + content;
}

} // namespace

QByteArray ToneWave(int hertz, int milliseconds) {
    constexpr quint16 pulseCode = 1;
    constexpr quint16 channels = 1;
    constexpr quint16 bytesPerSample = 1;
    const QByteArray format = LittleEndian(pulseCode) + LittleEndian(channels) +
                              LittleEndian(SamplesPerSecond) + LittleEndian(SamplesPerSecond) +
                              LittleEndian(bytesPerSample) + LittleEndian(quint16{8});
    const int samples = milliseconds * static_cast<int>(SamplesPerSecond) / 1000 & ~1;
    QByteArray data(samples, Qt::Uninitialized);
    for (int at = 0; at < samples; ++at) {
        const double turn = 2 * std::numbers::pi * hertz * at / SamplesPerSecond;
        data[at] = static_cast<char>(128 + std::lround(100 * std::sin(turn)));
    }
    return Chunk("RIFF", "WAVE" + Chunk("fmt ", format) + Chunk("data", data));
}

} // namespace netrove::sample
