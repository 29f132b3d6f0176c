#pragma once

#include "platform/Http.h"

#include <chrono>

namespace netrove {

struct HttpLimits {
    std::chrono::milliseconds time{15'000}; ///< from the request to the last byte
    qint64 bytes = 1 << 20;                 ///< of the body
    int redirects = 5;                      ///< never from https to http, nor to any other scheme
};

/// Reads through Qt's network library, in a thread of its own: while OpenURL waits, no handler of
/// the calling thread runs, and none of its sockets or timers is needed. Texts are UTF-8, or
/// Windows-1252 if they aren't valid UTF-8. No cookies, no cache; the proxy is the system's.
///
/// It is a failure if the answer is an error page, comes too late, is too long or shorter than it
/// says, or if the user gives up the wait. An answer that is sent in chunks may end in the middle
/// of one: Qt doesn't always notice.
class HttpReader : public Http {
public:
    explicit HttpReader(HttpLimits limits = {}) : limits_(limits) {}

    [[nodiscard]] QString OpenURL(const QString& address) override;

private:
    HttpLimits limits_;
};

} // namespace netrove
