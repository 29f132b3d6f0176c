#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <memory>

namespace netrove {

/// A password. Its bytes lie in memory of their own, which no core file and, where the system
/// allows it, no swap gets, and which is wiped when the last copy of the object goes: copies share
/// it. Safe in several threads, as nothing changes it.
class Secret {
public:
    Secret() = default; ///< an empty one
    explicit Secret(QByteArrayView bytes);

    /// Valid as long as this object; there is a zero character behind the last one.
    [[nodiscard]] QByteArrayView Bytes() const;
    [[nodiscard]] bool IsEmpty() const { return !pages_; }

    friend bool operator==(const Secret& left, const Secret& right) {
        return left.Bytes() == right.Bytes();
    }

private:
    struct Pages;
    std::shared_ptr<const Pages> pages_; ///< null for an empty one
};

/// Overwrites what a text holds, where others share it theirs too, and empties it. For what had to
/// be in an ordinary text for a moment.
void Wipe(QByteArray& bytes);
void Wipe(QString& text);

} // namespace netrove
