#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace netrove {

/// Cuts a stream of bytes into frames: a length of four bytes, highest first, then that many bytes.
class Frames {
public:
    /// Bytes of one frame without its length field: a longer frame isn't ours.
    static constexpr quint32 MaxLength = 2 * 1024 * 1024;

    /// The payload as a frame; it must be no longer than MaxLength.
    [[nodiscard]] static QByteArray Framed(const QByteArray& payload);

    void Append(QByteArrayView bytes);

    /// The next complete frame's payload; nothing until it has arrived.
    [[nodiscard]] std::optional<QByteArray> Take();

    /// Whether a length has come that no frame of ours has: what follows can't be read any more.
    [[nodiscard]] bool IsBroken() const { return broken_; }

private:
    QByteArray bytes_;
    qsizetype begin_ = 0; ///< where the first frame that hasn't been taken begins
    bool broken_ = false;
};

} // namespace netrove
