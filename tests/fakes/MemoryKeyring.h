#pragma once

#include "platform/Keyring.h"

#include <QHash>

namespace netrove {

/// A keyring in memory, which answers within the call, or when Answer() is called.
class MemoryKeyring : public Keyring {
public:
    [[nodiscard]] bool IsThere() const override { return isThere; }

    void Read(const QString& entry, ReadDone done) override {
        ++reads;
        Answered([this, entry, done] {
            if (refuses)
                done(Outcome::Refused, Secret());
            else if (!entries.contains(entry))
                done(Outcome::Missing, Secret());
            else
                done(Outcome::Done, entries.value(entry));
        });
    }

    void Write(const QString& entry, const Secret& value, WriteDone done) override {
        Answered([this, entry, value, done] {
            if (refuses) {
                done(Outcome::Refused);
                return;
            }
            entries.insert(entry, value);
            if (value.IsEmpty())
                entries.remove(entry);
            done(Outcome::Done);
        });
    }

    /// Answers what was asked while it was slow.
    void Answer() {
        const auto now = std::move(waiting_);
        waiting_.clear();
        for (const auto& answer : now)
            answer();
    }

    bool isThere = true;
    bool refuses = false;
    bool isSlow = false;
    int reads = 0;
    QHash<QString, Secret> entries;

private:
    void Answered(std::function<void()> answer) {
        if (isSlow)
            waiting_.push_back(std::move(answer));
        else
            answer();
    }

    std::vector<std::function<void()>> waiting_;
};

} // namespace netrove
