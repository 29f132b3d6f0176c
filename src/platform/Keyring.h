#pragma once

#include "runtime/Secret.h"

#include <QString>

#include <functional>

namespace netrove {

/// Where the desktop keeps the user's passwords, encrypted. Every call returns at once; its answer
/// comes later, on any thread, and not at all if the object is destroyed before. An answer can take
/// as long as the user leaves a question of the keyring unanswered.
class Keyring {
public:
    enum class Outcome {
        Done,
        Missing, ///< of a read: there is no such entry
        None,    ///< this desktop has no keyring
        Refused, ///< it stayed locked, or failed
    };
    using ReadDone = std::function<void(Outcome outcome, const Secret& value)>;
    using WriteDone = std::function<void(Outcome outcome)>;

    Keyring() = default;
    Keyring(const Keyring&) = delete;
    Keyring& operator=(const Keyring&) = delete;
    virtual ~Keyring() = default;

    /// Whether the desktop has a keyring, as far as can be told without a question to the user.
    [[nodiscard]] virtual bool IsThere() const = 0;

    virtual void Read(const QString& entry, ReadDone done) = 0;
    /// Replaces the entry; an empty value removes it. The text is UTF-8.
    virtual void Write(const QString& entry, const Secret& value, WriteDone done) = 0;
};

} // namespace netrove
