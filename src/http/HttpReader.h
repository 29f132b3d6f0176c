#pragma once

#include "platform/Http.h"

#include <chrono>

namespace netrove {

struct HttpLimits {
    std::chrono::milliseconds time{15'000}; ///< from the question to the last byte
    qint64 bytes = 1 << 20;                 ///< of the body
    int redirects = 5;                      ///< none leads from https to http, or elsewhere
};

/// Reads through Qt's network library, in a thread of its own: no handler of this thread runs, and
/// no socket or timer of it is needed, while OpenURL waits. Texts are UTF-8, or Windows-1252 where
/// they aren't valid UTF-8. No cookies, no cache; the proxy is the system's.
///
/// An answer that is an error page, comes too late, is too long or shorter than it says is a
/// failure, and so is a wait that the user gives up. One that says its length by chunks may end in
/// the middle of one: Qt doesn't always notice.
class HttpReader : public Http {
public:
    explicit HttpReader(HttpLimits limits = {}) : limits_(limits) {}

    [[nodiscard]] QString OpenURL(const QString& address) override;

private:
    HttpLimits limits_;
};

} // namespace netrove
