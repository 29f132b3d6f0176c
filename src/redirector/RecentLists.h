#pragma once

#include "redirector/SmbLists.h"

#include <QHash>
#include <QString>

#include <chrono>
#include <functional>
#include <list>
#include <optional>

namespace netrove {

/// What servers have told of their shares and folders in the last few seconds. A search lists each
/// folder twice in a row and then asks for the date, length and attributes of each file that it
/// found there: all of that is in the first listing. Disks and printers come together, too, and are
/// asked for one right after the other. The next search starts without all that.
class RecentLists {
public:
    using Clock = std::chrono::steady_clock;

    /// When a list is forgotten.
    struct Age {
        std::chrono::seconds rest; ///< without being used
        std::chrono::seconds most; ///< even if it is used all the time
    };
    static constexpr Age OfFolders{.rest = std::chrono::seconds(5),
                                   .most = std::chrono::seconds(60)};
    static constexpr Age OfShares{.rest = std::chrono::seconds(5), .most = std::chrono::seconds(5)};
    /// Entries and shares kept in all, at some 150 bytes each. A longer list isn't kept.
    static constexpr std::size_t MaxEntries = 200000;

    explicit RecentLists(std::function<Clock::time_point()> now = &Clock::now)
        : now_(std::move(now)) {}

    /// `key` is a name for the server or folder (FolderKeys.h).
    void Keep(const QString& key, SmbList list, Age age);

    /// Null if it isn't known (any more). Until the next call of any of these.
    [[nodiscard]] const SmbList* Find(const QString& key);

    void Clear();

    /// What the listing of a folder says of an entry, whose name must be letter for letter as it
    /// stands there: a server may have names that differ in case alone.
    [[nodiscard]] std::optional<SmbEntry> FindEntry(const QString& folder, const QString& name);

private:
    struct Kept {
        QString key;
        SmbList list;
        Age age;
        Clock::time_point made;
        Clock::time_point used;
        QHash<QString, std::size_t> places; ///< of the names; made at the first look-up
    };

    [[nodiscard]] Kept* Use(const QString& key);
    [[nodiscard]] static std::size_t SizeOf(const SmbList& list);
    [[nodiscard]] static bool IsOld(const Kept& kept, Clock::time_point now);
    void Forget(std::list<Kept>::iterator kept);
    void ForgetOld();

    std::function<Clock::time_point()> now_;
    std::list<Kept> kept_; ///< the one used last in front
    std::size_t entries_ = 0;
};

} // namespace netrove
