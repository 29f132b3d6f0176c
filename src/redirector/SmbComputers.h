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
/// are found on the LAN, by name. What isn't configured of a computer is taken from what was
/// found. One whose workgroup nobody has told stands in "WORKGROUP".
class SmbComputers {
public:
    using Clock = std::chrono::steady_clock;

    /// How long nobody looks again, how long what was found is given out without waiting for
    /// another look, and how long a computer stays that isn't found any more: an answer gets lost
    /// at times.
    static constexpr std::chrono::seconds New{15};
    static constexpr std::chrono::seconds Fresh{60};
    static constexpr std::chrono::seconds Kept{600};
    /// A look that began so long before a search serves it too: it has just ended, most likely for
    /// the search's start.
    static constexpr std::chrono::seconds Current{2};

    /// Of hosts with equal names (but for case) the first counts. Without a source nobody is looked
    /// for.
    SmbComputers(const std::vector<SmbHost>& hosts,
                 std::unique_ptr<ComputerSource> source = nullptr,
                 std::function<Clock::time_point()> now = &Clock::now);

    /// Whether an address means something only together with an interface, which not everybody who
    /// is given the address can say ("fe80::1%eth0").
    [[nodiscard]] static bool IsOfOneLink(const QString& address);

    /// A search begins, which is given nothing that was found before, until it ends.
    void BeginWalk() { walkBegun_ = now_(); }
    void EndWalk() { walkBegun_.reset(); }

    /// Looks who is there. Waits for the end of the look, and calls WhileWaiting(), unless the last
    /// one is fresh and anybody is known: then it goes on behind, for the next time. False where
    /// the wait was given up. `onNews` is called before a wait and whenever more is known.
    [[nodiscard]] bool Look(const std::function<void()>& onNews = {});
    /// Whether the LAN is asked at all, and how many computers are configured.
    [[nodiscard]] bool Finds() const { return source_ != nullptr; }
    [[nodiscard]] std::size_t Configured() const { return configured_.size(); }
    /// Whether anybody has looked yet, or nobody can.
    [[nodiscard]] bool HasLooked() const { return !source_ || looked_; }

    /// What is known so far.
    [[nodiscard]] const std::vector<SmbHost>& All() const { return all_; }
    /// Null for an unknown one. Until the next look.
    [[nodiscard]] const SmbHost* Find(const QString& name) const;

    /// Where a computer is reached that others may not find by its name: as configured, or because
    /// it has been found at another port than the usual one.
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

    /// Whether the last look is no older than that, and serves the search.
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
    std::optional<Clock::time_point> begun_;  ///< a look whose end wasn't seen yet
    std::optional<Clock::time_point> looked_; ///< when the last look began that has ended
    std::optional<Clock::time_point> walkBegun_;
    QMap<QString, Found> found_; ///< by folded names
    std::vector<SmbHost> all_;
    QHash<QString, std::size_t> places_; ///< in all_, by folded names
    QHash<QString, QString> told_;       ///< workgroups, by folded names
};

} // namespace netrove
