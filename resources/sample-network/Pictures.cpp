#include "Pictures.h"

#include <QtEndian>

#include <array>
#include <bit>
#include <cstdlib>
#include <random>

namespace netrove::sample {
namespace {

constexpr std::size_t Components = 3; // brightness and two of colour

/// The bits of a scan: of each block only its mean is coded, as a difference to the one before.
class Scan {
public:
    void PutBlock(std::size_t component, int mean) {
        const int difference = mean - last_[component];
        last_[component] = mean;
        const int bits = std::bit_width(static_cast<unsigned>(std::abs(difference)));
        Put(bits, 4);
        Put(difference < 0 ? difference + (1 << bits) - 1 : difference, bits);
        Put(0, 1); // nothing else in this block
    }

    [[nodiscard]] QByteArray Finish() {
        while (used_ != 0)
            Put(1, 1);
        return bytes_;
    }

private:
    void Put(int value, int bits) {
        for (int bit = bits - 1; bit >= 0; --bit) {
            byte_ = static_cast<quint8>(byte_ << 1 | (value >> bit & 1));
            if (++used_ < 8)
                continue;
            bytes_ += static_cast<char>(byte_);
            if (byte_ == 0xFF)
                bytes_ += '\0';
            used_ = 0;
        }
    }

    QByteArray bytes_;
    std::array<int, Components> last_{};
    quint8 byte_ = 0;
    int used_ = 0;
};

QByteArray Segment(char marker, const QByteArray& content) {
    QByteArray length(2, '\0');
    qToBigEndian(static_cast<quint16>(content.size() + 2), length.data());
    return QByteArray(1, '\xFF') + marker + length + content;
}

QByteArray Bytes(std::initializer_list<int> values) {
    QByteArray bytes;
    for (const int value : values)
        bytes += static_cast<char>(value);
    return bytes;
}

} // namespace

QByteArray TilePicture(int tilesAcross, int tilesDown, quint32 number) {
    const int width = tilesAcross * 8;
    const int height = tilesDown * 8;
    std::mt19937 random(number);
    Scan scan;
    for (int tile = 0; tile < tilesAcross * tilesDown; ++tile) {
        scan.PutBlock(0, static_cast<int>(random() % 160) - 60);
        scan.PutBlock(1, static_cast<int>(random() % 96) - 48);
        scan.PutBlock(2, static_cast<int>(random() % 96) - 48);
    }
    const QByteArray start = Bytes({0xFF, 0xD8});
    const QByteArray end = Bytes({0xFF, 0xD9});
    const QByteArray application = QByteArrayLiteral("JFIF\0") + Bytes({1, 1, 0, 0, 1, 0, 1, 0, 0});
    // With all steps 8 the coded mean is the mean itself.
    const QByteArray steps = QByteArray(1, '\0') + QByteArray(64, '\x08');
    const QByteArray frame = Bytes({8, height >> 8, height & 0xFF, width >> 8, width & 0xFF, 3}) +
                             Bytes({1, 0x11, 0, 2, 0x11, 0, 3, 0x11, 0});
    // Twelve codes of four bits for the lengths of means; one of one bit for the end of a block.
    const QByteArray means = Bytes({0x00, 0, 0, 0, 12, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}) +
                             Bytes({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
    const QByteArray blockEnd = Bytes({0x10, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    const QByteArray scanHead = Bytes({3, 1, 0x00, 2, 0x00, 3, 0x00, 0, 63, 0});
    return start + Segment('\xE0', application) + Segment('\xDB', steps) + Segment('\xC0', frame) +
           Segment('\xC4', means) + Segment('\xC4', blockEnd) + Segment('\xDA', scanHead) +
           scan.Finish() + end;
}

} // namespace netrove::sample
