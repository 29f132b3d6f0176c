#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <memory>

namespace netrove {

/// A password. Its bytes lie in memory of their own, which goes into no core file and, if the
/// system allows it, into no swap. Copies of the object share that memory; it is wiped when the
/// last one goes. May be used by several threads at once, as nothing changes it.
class Secret {
public:
    Secret() = default; ///< an empty one
    explicit Secret(QByteArrayView bytes);

    /// Valid while this object exists; a zero byte follows the last one.
    [[nodiscard]] QByteArrayView Bytes() const;
    [[nodiscard]] bool IsEmpty() const { return !pages_; }

    friend bool operator==(const Secret& left, const Secret& right) {
        return left.Bytes() == right.Bytes();
    }

private:
    struct Pages;
    std::shared_ptr<const Pages> pages_; ///< null for an empty one
};

/// Overwrites the content of a text, also for other texts that share it, and empties the text. For
/// passwords that had to be in an ordinary text for a moment.
void Wipe(QByteArray& bytes);
void Wipe(QString& text);

} // namespace netrove
