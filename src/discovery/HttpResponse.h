#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace netrove {

/// What a web server has answered so far, taken from its bytes.
struct HttpResponse {
    /// The most bytes of an answer that are read.
    static constexpr qsizetype MaxBytes = 65536;

    enum class State {
        Incomplete, ///< more bytes are needed
        Complete,
        Refused, ///< not an HTTP answer, one that reports a failure, or too long
    };

    State state = State::Incomplete;
    QByteArray body; ///< of a complete answer

    /// `isClosed` tells that no more bytes will come.
    [[nodiscard]] static HttpResponse Parse(QByteArrayView bytes, bool isClosed);
};

} // namespace netrove
