#pragma once

#include "platform/Keyring.h"
#include "redirector/StoredLogon.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace netrove {

struct SmbRequest;

/// The logons that the user has stored, in the keyring or for this run, and which of them are no
/// good. Whoever sends requests gets their logons here, and reports how the requests ended
/// (LogonUse). May be used by several threads at once. Made by std::make_shared.
///
/// The keyring is read when the first request asks, not before: it may have to ask the user.
///
/// A logon that a computer refuses isn't tried there again until it is stored anew: accounts are
/// locked after a few wrong passwords. A logon with a domain is checked in one place for all
/// computers: if it is refused before any computer has let it in, it is not tried anywhere again.
class Logons : public std::enable_shared_from_this<Logons> {
public:
    using ReadDone = std::function<void(Keyring::Outcome outcome)>;
    using StoreDone = std::function<void(Keyring::Outcome outcome)>;

    enum class Turn {
        Go,      ///< send the request, then call Note() or Release()
        Wait,    ///< another request is finding out whether the logon is good: ask again
        Refused, ///< it isn't
    };

    /// Without a keyring all logons end with the program.
    explicit Logons(std::shared_ptr<Keyring> keyring = nullptr) : keyring_(std::move(keyring)) {}

    /// Fills in the logon of the request's computer: its own, else that for all computers, else
    /// none, which is a guest's. Doesn't wait.
    [[nodiscard]] Turn Apply(SmbRequest& request);
    /// Whether the request doesn't try out its logon: it has none, or its computer has already let
    /// it in.
    [[nodiscard]] bool IsSafe(const SmbRequest& request);
    /// Takes note of how an applied request ended. Returns the errno that the rest of the program
    /// is to see: for a refused logon it means "permission denied".
    int Note(const SmbRequest& request, int status);
    /// For an applied request that was given up before its end.
    void Release(const SmbRequest& request);

    /// Reads the keyring if nobody has yet, or if it refused the last time. `done` is called on any
    /// thread once it is read; at once where there is nothing to wait for.
    void Read(ReadDone done);

    /// Starts to read the keyring if nobody has yet, and tells whether a request that needs a logon
    /// should wait for it. A user who doesn't unlock it holds up the network only for a while.
    [[nodiscard]] bool IsReading();

    /// In the order of the computers' names, the one for all computers first.
    [[nodiscard]] std::vector<StoredLogon> All() const;
    /// Whether the logon stored for this computer (empty: for all) has been refused somewhere.
    [[nodiscard]] bool IsRefused(const QString& computer) const;
    [[nodiscard]] bool HasKeyring() const { return keyring_ && keyring_->IsThere(); }

    /// Stores a logon, replacing the one for its computer; it holds from the next request on. One
    /// that the keyring doesn't take is kept for this run. `done` is called on any thread, at once
    /// where the keyring has nothing to do.
    void Store(const StoredLogon& logon, StoreDone done);
    void Remove(const QString& computer, StoreDone done);

private:
    using Clock = std::chrono::steady_clock;
    enum class Reading { NotYet, Now, Done };

    struct Known {
        StoredLogon stored;
        QSet<QString> letIn = {};         ///< computers that have let it in
        QSet<QString> trying = {};        ///< those where it is being tried for the first time
        QHash<QString, int> refused = {}; ///< how often in a row, by computer
        bool isRefusedByDomain = false;
    };
    struct Change {
        std::function<void(std::vector<StoredLogon>&)> apply;
        StoreDone done;
    };

    [[nodiscard]] Known* Find(const QString& computer);
    [[nodiscard]] Known* FindFor(const SmbRequest& request);
    void NoteLetIn(Known& known, const QString& computer);
    void NoteRefusal(Known& known, const QString& computer);
    void TakeRead(Keyring::Outcome outcome, const Secret& entry);
    void ChangeKeyring(Change change);
    void BeginChange();
    void EndChange(Keyring::Outcome outcome);

    std::shared_ptr<Keyring> keyring_;
    mutable std::mutex mutex_;
    Reading reading_ = Reading::NotYet;
    Clock::time_point readLimit_;
    Keyring::Outcome readOutcome_ = Keyring::Outcome::Missing;
    std::vector<ReadDone> whenRead_;
    std::vector<Known> known_;
    std::deque<Change> changes_; ///< to the keyring; the first is under way
};

} // namespace netrove
