#pragma once

#include <QByteArrayView>

#include <functional>

namespace netrove {

/// What tells one state of a file from another.
struct CopySourceState {
    qint64 length = 0;   ///< bytes
    qint64 modified = 0; ///< milliseconds since 1970 UTC

    friend bool operator==(const CopySourceState&, const CopySourceState&) = default;
};

/// A file that is copied. Calls block, call WhileWaiting() while they wait for the network, and
/// raise a RunTimeError as FileAccess does.
class CopySource {
public:
    using Sink = std::function<void(QByteArrayView bytes)>;

    /// Bytes that one read may ask for.
    static const quint32 MaxRead;

    CopySource() = default;
    CopySource(const CopySource&) = delete;
    CopySource& operator=(const CopySource&) = delete;
    virtual ~CopySource() = default;

    /// Raises ErrorNumber::PermissionDenied for a folder too.
    [[nodiscard]] virtual CopySourceState Inspect() = 0;

    /// Gives the bytes from `offset` on to `sink`, in any number of pieces; fewer than `length`
    /// only where the file ends.
    virtual void Read(qint64 offset, quint32 length, const Sink& sink) = 0;
};

} // namespace netrove
