#pragma once

#include "smb/SmbMessages.h"

#include <QHash>
#include <QString>

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <optional>

namespace netrove {

/// The folder listings of the last few seconds. A search lists each folder twice in a row and then
/// asks for the date, length and attributes of each file that it found there: all of that is in
/// the first listing. The next search starts without them.
class RecentListings {
public:
    using Clock = std::chrono::steady_clock;
    using Listing = std::shared_ptr<const SmbEntries>;

    /// Time since the last use after which a listing is forgotten, and the age at which it is
    /// forgotten even if it is used all the time.
    static constexpr std::chrono::seconds Rest{5};
    static constexpr std::chrono::seconds MaxAge{60};
    /// Entries kept in all, at some 150 bytes each. A longer listing isn't kept.
    static constexpr std::size_t MaxEntries = 200000;

    explicit RecentListings(std::function<Clock::time_point()> now = &Clock::now)
        : now_(std::move(now)) {}

    /// `folder` is a name for the folder: texts that differ are different folders.
    void Keep(const QString& folder, Listing listing);

    /// Null if it isn't known (any more).
    [[nodiscard]] Listing Find(const QString& folder);

    void Clear();

    /// What the listing of a folder says of an entry, whose name must be letter for letter as it
    /// stands there: a server may have names that differ in case alone.
    [[nodiscard]] std::optional<SmbEntry> FindEntry(const QString& folder, const QString& name);

private:
    struct Kept {
        QString folder;
        Listing listing;
        Clock::time_point made;
        Clock::time_point used;
        QHash<QString, std::size_t> places; ///< of the names; made at the first look-up
    };

    [[nodiscard]] Kept* Use(const QString& folder);
    [[nodiscard]] static bool IsOld(const Kept& kept, Clock::time_point now);
    void Forget(std::list<Kept>::iterator kept);
    void ForgetOld();

    std::function<Clock::time_point()> now_;
    std::list<Kept> kept_; ///< the one used last in front
    std::size_t entries_ = 0;
};

} // namespace netrove
