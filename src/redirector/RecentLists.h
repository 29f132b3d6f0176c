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
/// found there: all of that is in the first listing. A server's disks and printers come in one
/// answer, too, and are asked for right after each other. The next search starts with no lists.
class RecentLists {
public:
    using Clock = std::chrono::steady_clock;

    /// How long a list is kept.
    struct Age {
        std::chrono::seconds rest; ///< without being used
        std::chrono::seconds most; ///< even if it is used all the time
    };
    static constexpr Age OfFolders{.rest = std::chrono::seconds(5),
                                   .most = std::chrono::seconds(60)};
    static constexpr Age OfShares{.rest = std::chrono::seconds(5), .most = std::chrono::seconds(5)};
    /// How many entries and shares are kept in all, at some 150 bytes each. A longer list isn't
    /// kept.
    static constexpr std::size_t MaxEntries = 200000;

    explicit RecentLists(std::function<Clock::time_point()> now = &Clock::now)
        : now_(std::move(now)) {}

    /// `key` is a name for the server or folder (FolderKeys.h).
    void Keep(const QString& key, SmbList list, Age age);

    /// Null if the list isn't known (any more). The result holds until the next call of any of
    /// these functions.
    [[nodiscard]] const SmbList* Find(const QString& key);

    void Clear();

    /// What the listing of a folder says of an entry. The case of `name` counts: a server may have
    /// names that differ in case alone.
    [[nodiscard]] std::optional<SmbEntry> FindEntry(const QString& folder, const QString& name);

private:
    struct Kept {
        QString key;
        SmbList list;
        Age age;
        Clock::time_point made;
        Clock::time_point used;
        QHash<QString, std::size_t> places; ///< by name; made at the first look-up
    };

    [[nodiscard]] Kept* Use(const QString& key);
    [[nodiscard]] static std::size_t SizeOf(const SmbList& list);
    [[nodiscard]] static bool IsOld(const Kept& kept, Clock::time_point now);
    void Forget(std::list<Kept>::iterator kept);
    void ForgetOld();

    std::function<Clock::time_point()> now_;
    std::list<Kept> kept_; ///< the most recently used first
    std::size_t entries_ = 0;
};

} // namespace netrove
