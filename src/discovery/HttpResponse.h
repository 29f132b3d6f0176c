#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace netrove {

/// What a web server has answered so far, taken from its bytes.
struct HttpResponse {
    /// Bytes of an answer that are read at most.
    static constexpr qsizetype MaxBytes = 65536;

    enum class State {
        Incomplete, ///< more bytes are needed
        Complete,
        Refused, ///< no answer, one that says that it failed, or too long
    };

    State state = State::Incomplete;
    QByteArray body; ///< of a complete one

    /// `isClosed` tells that no more bytes will come.
    [[nodiscard]] static HttpResponse Parse(QByteArrayView bytes, bool isClosed);
};

} // namespace netrove
