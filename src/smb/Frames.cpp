#include "smb/Frames.h"

#include <QtEndian>

namespace netrove {
namespace {

constexpr qsizetype HeaderBytes = sizeof(quint32);

} // namespace

QByteArray Frames::Framed(const QByteArray& payload) {
    QByteArray frame(HeaderBytes, '\0');
    qToBigEndian(static_cast<quint32>(payload.size()), frame.data());
    return frame + payload;
}

void Frames::Append(QByteArrayView bytes) {
    bytes_.remove(0, begin_);
    begin_ = 0;
    bytes_.append(bytes);
}

std::optional<QByteArray> Frames::Take() {
    if (broken_ || bytes_.size() - begin_ < HeaderBytes)
        return std::nullopt;
    const auto length = qFromBigEndian<quint32>(bytes_.constData() + begin_);
    if (length > MaxLength) {
        broken_ = true;
        return std::nullopt;
    }
    if (bytes_.size() - begin_ - HeaderBytes < static_cast<qsizetype>(length))
        return std::nullopt;
    QByteArray payload = bytes_.mid(begin_ + HeaderBytes, length);
    begin_ += HeaderBytes + length;
    return payload;
}

} // namespace netrove
