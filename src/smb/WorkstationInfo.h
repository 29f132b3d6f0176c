#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace netrove {

/// The question for a computer's workgroup, as messages on its pipe "wkssvc": NetrWkstaGetInfo at
/// level 100, the level that needs no rights ([MS-WKST] 3.2.4.1), over DCE/RPC ([C706] 12.6). Each
/// question is one message, and only answers in one message are understood.
class WorkstationInfo {
public:
    /// Bytes at the beginning of every message.
    static constexpr qsizetype HeaderBytes = 16;

    /// The first question: whether the pipe has this interface.
    [[nodiscard]] static QByteArray Bind();
    /// The second: the computer's names.
    [[nodiscard]] static QByteArray Request();

    /// The length in bytes of the whole message that begins with this header; nothing if the
    /// header isn't one of ours.
    [[nodiscard]] static std::optional<qsizetype> MessageBytes(const QByteArray& header);

    /// Whether the answer to Bind() is yes.
    [[nodiscard]] static bool IsBound(const QByteArray& message);

    /// The workgroup or domain in the answer to Request(); nothing where it is a refusal, or no
    /// such answer.
    [[nodiscard]] static std::optional<QString> Workgroup(const QByteArray& message);
};

} // namespace netrove
