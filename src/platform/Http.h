#pragma once

#include <QString>

namespace netrove {

/// Whether a text is an http or https address with a host. Only such addresses are read, and only
/// such addresses are opened where an answer from the web names them.
[[nodiscard]] bool IsWebAddress(const QString& text);

/// Reads text files from web servers.
class Http {
public:
    Http() = default;
    Http(const Http&) = delete;
    Http& operator=(const Http&) = delete;
    virtual ~Http() = default;

    /// The whole body of the answer, as text. Blocks until it has come; windows are painted
    /// meanwhile, and everything else waits (WhileWaiting). Raises a RunTimeError if no such answer
    /// comes.
    [[nodiscard]] virtual QString OpenURL(const QString& address) = 0;
};

} // namespace netrove
