#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace netrove {

/// The progress of a running copy.
struct CopyProgress {
    qint64 copied = 0;         ///< bytes
    qint64 length = 0;         ///< bytes of the whole file
    qint64 bytesPerSecond = 0; ///< over the last seconds
};

/// Copies files in the background, several at a time. It lives on the thread of the user
/// interface, and its signals are raised there.
class CopyQ : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// What becomes of a file that has the name of the destination when the copy is complete.
    enum class Existing { Keep, Replace };

    /// Accepts a copy of the file `source` (a network path or a local one) to the local file
    /// `destination` and gives its id; the copying goes on in the background. Raises a RunTimeError
    /// if the copy can't be accepted; then no CopyDone follows.
    [[nodiscard]] virtual QString QueueCopy(const QString& source, const QString& destination,
                                            Existing existing = Existing::Keep) = 0;

    /// Nothing for the id of a copy that isn't running.
    [[nodiscard]] virtual std::optional<CopyProgress> Progress(const QString& id) const = 0;

Q_SIGNALS:
    /// Raised once for each accepted copy, never from within QueueCopy. `errorNumber` is 0 when
    /// the whole file has arrived, else a number of ErrorNumber.
    void CopyDone(const QString& sIndexKey, int errorNumber);
    /// Raised instead of CopyDone if something with the name of the destination is to be kept.
    void TargetTaken(const QString& sIndexKey);
};

} // namespace netrove
