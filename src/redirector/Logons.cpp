#include "redirector/Logons.h"

#include "runtime/Names.h"
#include "smb/SmbMessages.h"

#include <algorithm>
#include <cerrno>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// The keyring's entry with all logons. There is only one: reading it asks the user at most once,
/// and it tells by itself which computers have a logon.
constexpr QLatin1String Entry("logons");

/// How long requests wait for the keyring: as long as it takes to type its password. Logons that
/// come later hold for later requests.
constexpr auto ReadLimit = 30s;

/// How often in a row a computer may refuse a logon that it has let in before: a computer that has
/// no room for another connection refuses, too.
constexpr int MaxRefusals = 3;

QString ComputerOf(const SmbRequest& request) {
    return NameKey(request.computer.isEmpty() ? request.host : request.computer);
}

void EraseComputer(std::vector<StoredLogon>& logons, const QString& computer) {
    std::erase_if(logons,
                  [&](const StoredLogon& one) { return IsSameName(one.computer, computer); });
}

} // namespace

Logons::Known* Logons::Find(const QString& computer) {
    const auto found = std::find_if(known_.begin(), known_.end(), [&](const Known& one) {
        return NameKey(one.stored.computer) == computer;
    });
    return found == known_.end() ? nullptr : &*found;
}

/// The logon that an applied request was given, if it is still stored. If it was the one for all
/// computers, one for this computer may have been stored meanwhile.
Logons::Known* Logons::FindFor(const SmbRequest& request) {
    for (Known* known : {Find(ComputerOf(request)), Find(QString())}) {
        if (known && request.logon && LogonOf(known->stored) == *request.logon)
            return known;
    }
    return nullptr;
}

Logons::Turn Logons::Apply(SmbRequest& request) {
    const std::scoped_lock lock(mutex_);
    request.logon.reset();
    const QString computer = ComputerOf(request);
    Known* known = Find(computer);
    if (!known)
        known = Find(QString());
    if (!known)
        return Turn::Go;
    const bool isLetIn = known->letIn.contains(computer);
    if (known->isRefusedByDomain || known->refused.value(computer) >= (isLetIn ? MaxRefusals : 1))
        return Turn::Refused;
    if (known->trying.contains(computer))
        return Turn::Wait;
    if (!isLetIn)
        known->trying.insert(computer);
    request.logon = LogonOf(known->stored);
    return Turn::Go;
}

bool Logons::IsSafe(const SmbRequest& request) {
    const std::scoped_lock lock(mutex_);
    const QString computer = ComputerOf(request);
    const Known* known = Find(computer);
    if (!known)
        known = Find(QString());
    return !known || known->letIn.contains(computer);
}

int Logons::Note(const SmbRequest& request, int status) {
    const std::scoped_lock lock(mutex_);
    if (Known* known = FindFor(request)) {
        const QString computer = ComputerOf(request);
        known->trying.remove(computer);
        // The server looked for what it didn't find, so it had let the logon in.
        if (status == 0 || status == ENOENT)
            NoteLetIn(*known, computer);
        else if (status == SmbEnd::LogonRefused)
            NoteRefusal(*known, computer);
    }
    return status == SmbEnd::LogonRefused ? EACCES : status;
}

void Logons::NoteLetIn(Known& known, const QString& computer) {
    known.letIn.insert(computer);
    known.refused.remove(computer);
    known.isRefusedByDomain = false;
}

void Logons::NoteRefusal(Known& known, const QString& computer) {
    ++known.refused[computer];
    if (known.letIn.isEmpty() && !LogonOf(known.stored).domain.isEmpty())
        known.isRefusedByDomain = true;
}

void Logons::Release(const SmbRequest& request) {
    const std::scoped_lock lock(mutex_);
    if (Known* known = FindFor(request))
        known->trying.remove(ComputerOf(request));
}

void Logons::Read(ReadDone done) {
    {
        std::unique_lock lock(mutex_);
        if (reading_ == Reading::Done && readOutcome_ != Keyring::Outcome::Refused) {
            const Keyring::Outcome outcome = readOutcome_;
            lock.unlock();
            done(outcome);
            return;
        }
        whenRead_.push_back(std::move(done));
        if (reading_ == Reading::Now)
            return;
        reading_ = Reading::Now;
        readLimit_ = Clock::now() + ReadLimit;
    }
    if (!HasKeyring()) {
        TakeRead(Keyring::Outcome::None, Secret());
        return;
    }
    keyring_->Read(Entry, [self = weak_from_this()](Keyring::Outcome outcome, const Secret& entry) {
        if (const auto logons = self.lock())
            logons->TakeRead(outcome, entry);
    });
}

void Logons::TakeRead(Keyring::Outcome outcome, const Secret& entry) {
    std::vector<ReadDone> waiting;
    {
        const std::scoped_lock lock(mutex_);
        for (StoredLogon& one : DecodeLogons(entry)) {
            if (!Find(NameKey(one.computer)))
                known_.push_back({.stored = std::move(one)});
        }
        reading_ = Reading::Done;
        readOutcome_ = outcome;
        waiting.swap(whenRead_);
    }
    for (const auto& done : waiting)
        done(outcome);
}

bool Logons::IsReading() {
    {
        const std::scoped_lock lock(mutex_);
        if (reading_ == Reading::Done)
            return false;
        if (reading_ == Reading::Now)
            return Clock::now() < readLimit_;
    }
    Read([](Keyring::Outcome) {});
    const std::scoped_lock lock(mutex_);
    return reading_ == Reading::Now;
}

std::vector<StoredLogon> Logons::All() const {
    std::vector<StoredLogon> all;
    {
        const std::scoped_lock lock(mutex_);
        for (const Known& known : known_)
            all.push_back(known.stored);
    }
    std::sort(all.begin(), all.end(), [](const StoredLogon& left, const StoredLogon& right) {
        return NameKey(left.computer) < NameKey(right.computer);
    });
    return all;
}

bool Logons::IsRefused(const QString& computer) const {
    const std::scoped_lock lock(mutex_);
    return std::any_of(known_.begin(), known_.end(), [&](const Known& one) {
        return IsSameName(one.stored.computer, computer) &&
               (one.isRefusedByDomain || !one.refused.isEmpty());
    });
}

void Logons::Store(const StoredLogon& logon, StoreDone done) {
    bool wasInKeyring = false;
    {
        const std::scoped_lock lock(mutex_);
        Known known{.stored = logon};
        if (Known* before = Find(NameKey(logon.computer))) {
            wasInKeyring = before->stored.isInKeyring;
            *before = std::move(known);
        } else {
            known_.push_back(std::move(known));
        }
    }
    if (!logon.isInKeyring && !wasInKeyring) {
        done(Keyring::Outcome::Done);
        return;
    }
    const auto replace = [logon](std::vector<StoredLogon>& logons) {
        EraseComputer(logons, logon.computer);
        if (logon.isInKeyring)
            logons.push_back(logon);
    };
    const auto end = [self = weak_from_this(), logon, done](Keyring::Outcome outcome) {
        const auto logons = self.lock();
        if (logons && logon.isInKeyring && outcome != Keyring::Outcome::Done) {
            const std::scoped_lock lock(logons->mutex_);
            if (Known* known = logons->Find(NameKey(logon.computer)))
                known->stored.isInKeyring = false;
        }
        done(outcome);
    };
    ChangeKeyring({.apply = replace, .done = end});
}

void Logons::Remove(const QString& computer, StoreDone done) {
    bool wasInKeyring = false;
    {
        const std::scoped_lock lock(mutex_);
        if (const Known* known = Find(NameKey(computer)))
            wasInKeyring = known->stored.isInKeyring;
        std::erase_if(known_,
                      [&](const Known& one) { return IsSameName(one.stored.computer, computer); });
    }
    if (!wasInKeyring) {
        done(Keyring::Outcome::Done);
        return;
    }
    const auto erase = [computer](std::vector<StoredLogon>& logons) {
        EraseComputer(logons, computer);
    };
    ChangeKeyring({.apply = erase, .done = std::move(done)});
}

/// Changes are made one after the other, each to what the keyring holds by then: another instance
/// of the program may have changed it.
void Logons::ChangeKeyring(Change change) {
    if (!HasKeyring()) {
        change.done(Keyring::Outcome::None);
        return;
    }
    {
        const std::scoped_lock lock(mutex_);
        changes_.push_back(std::move(change));
        if (changes_.size() > 1)
            return;
    }
    BeginChange();
}

void Logons::BeginChange() {
    keyring_->Read(Entry, [self = weak_from_this()](Keyring::Outcome outcome, const Secret& entry) {
        const auto logons = self.lock();
        if (!logons)
            return;
        if (outcome != Keyring::Outcome::Done && outcome != Keyring::Outcome::Missing) {
            logons->EndChange(outcome);
            return;
        }
        std::vector<StoredLogon> stored = DecodeLogons(entry);
        {
            const std::scoped_lock lock(logons->mutex_);
            logons->changes_.front().apply(stored);
        }
        logons->keyring_->Write(Entry, EncodeLogons(stored), [self](Keyring::Outcome written) {
            if (const auto still = self.lock())
                still->EndChange(written);
        });
    });
}

void Logons::EndChange(Keyring::Outcome outcome) {
    StoreDone done;
    bool isMore = false;
    {
        const std::scoped_lock lock(mutex_);
        done = std::move(changes_.front().done);
        changes_.pop_front();
        isMore = !changes_.empty();
    }
    done(outcome);
    if (isMore)
        BeginChange();
}

} // namespace netrove
