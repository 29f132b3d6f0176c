#pragma once

#include <QString>

namespace netrove {

/// Whether a text is an http or https address with a host: the only kind that is read, and that an
/// answer from the web may have opened.
[[nodiscard]] bool IsWebAddress(const QString& text);

/// Reads text files from web servers.
class Http {
public:
    Http() = default;
    Http(const Http&) = delete;
    Http& operator=(const Http&) = delete;
    virtual ~Http() = default;

    /// The body of the answer, whole, as text. Blocks until it is there; windows are painted
    /// meanwhile, and everything else waits (WhileWaiting). Raises a RunTimeError where there is
    /// no such answer.
    [[nodiscard]] virtual QString OpenURL(const QString& address) = 0;
};

} // namespace netrove
