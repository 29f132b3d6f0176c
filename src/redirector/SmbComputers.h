#pragma once

#include "discovery/ComputerSource.h"
#include "platform/Files.h"
#include "redirector/SmbHost.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace netrove {

/// The computers of the SMB network: those that are configured, in their order, then those that
/// are found on the LAN, by name. What the configuration leaves open about a computer is taken from
/// what was found. A computer whose workgroup isn't known stands in "WORKGROUP".
class SmbComputers {
public:
    using Clock = std::chrono::steady_clock;

    /// How long after a look no other one begins; how long what it found is given out without
    /// waiting for another look; and how long a computer stays that isn't found any more, as an
    /// answer gets lost at times.
    static constexpr std::chrono::seconds New{15};
    static constexpr std::chrono::seconds Fresh{60};
    static constexpr std::chrono::seconds Kept{600};
    /// A look that began no longer than this before a search serves the search, too: most likely
    /// it was made for the search's start.
    static constexpr std::chrono::seconds Current{2};

    /// Of hosts whose names are equal (but for case) the first counts. Without a source no
    /// computers are looked for.
    SmbComputers(const std::vector<SmbHost>& hosts,
                 std::unique_ptr<ComputerSource> source = nullptr,
                 std::function<Clock::time_point()> now = &Clock::now);

    /// Whether an address holds only together with an interface ("fe80::1%eth0"), which not every
    /// user of the address can name.
    [[nodiscard]] static bool IsOfOneLink(const QString& address);

    /// A search begins: until it ends, only what is found from now on is given out.
    void BeginWalk() { walkBegun_ = now_(); }
    void EndWalk() { walkBegun_.reset(); }

    /// Looks for computers. Waits for the end of the look, and calls WhileWaiting(), unless the
    /// last one is fresh and some computer is known: then the new look goes on in the background,
    /// for the next call. False where the wait was given up. `onNews` is called before a wait and
    /// whenever more is known.
    [[nodiscard]] bool Look(const std::function<void()>& onNews = {});
    /// Whether the LAN is asked at all, and how many computers are configured.
    [[nodiscard]] bool Finds() const { return source_ != nullptr; }
    [[nodiscard]] std::size_t Configured() const { return configured_.size(); }
    /// Whether a look has ended, or none is possible.
    [[nodiscard]] bool HasLooked() const { return !source_ || looked_; }

    /// What is known so far.
    [[nodiscard]] const std::vector<SmbHost>& All() const { return all_; }
    /// Null for an unknown computer. The result holds until the next look.
    [[nodiscard]] const SmbHost* Find(const QString& name) const;

    /// The address of a computer that other programs may not find by its name: it is configured, or
    /// was found at another port than the usual one.
    [[nodiscard]] std::optional<ServerAddress> AddressOf(const QString& name) const;

    [[nodiscard]] QStringList Workgroups() const;
    [[nodiscard]] std::vector<const SmbHost*> In(const QString& workgroup) const;
    [[nodiscard]] QString WorkgroupOf(const SmbHost& host) const;

    /// The computer itself has told its workgroup.
    void NoteWorkgroup(const QString& computer, const QString& workgroup);

private:
    struct Found {
        SmbHost host;
        Clock::time_point seen;
    };

    /// Whether the last look is no older than `age`, and serves the search, if there is one.
    [[nodiscard]] bool Serves(Clock::duration age) const;
    void Begin();
    [[nodiscard]] bool AwaitEnd(const std::function<void()>& onNews);
    void NoteEnd();
    void TakeFound(Clock::time_point seen);
    void Merge();
    void Add(const SmbHost& host);

    std::vector<SmbHost> configured_;
    std::unique_ptr<ComputerSource> source_;
    std::function<Clock::time_point()> now_;
    std::optional<Clock::time_point> begun_;  ///< of the look whose end hasn't been noted yet
    std::optional<Clock::time_point> looked_; ///< when the last ended look began
    std::optional<Clock::time_point> walkBegun_;
    QMap<QString, Found> found_; ///< by folded names
    std::vector<SmbHost> all_;
    QHash<QString, std::size_t> places_; ///< indexes into all_, by folded names
    QHash<QString, QString> told_;       ///< workgroups, by folded names
};

} // namespace netrove
