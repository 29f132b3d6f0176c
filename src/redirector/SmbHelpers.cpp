#include "redirector/SmbHelpers.h"

#include <QHash>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// A helper that has just worked isn't ended for somebody who can wait: it has more to do soon.
constexpr auto Recent = 500ms;

} // namespace

bool SmbHelpers::MakeRoom(Urgency urgency) {
    if (count_ >= limits_.maxHelpers && !idle_.empty() &&
        (urgency == Urgency::GoesFirst || Clock::now() - idle_.front().since > Recent))
        Drop(idle_.begin());
    const std::size_t most = limits_.maxHelpers + (urgency == Urgency::GoesFirst ? 1 : 0);
    if (count_ >= most)
        return false;
    ++count_;
    return true;
}

void SmbHelpers::Keep(Idle helper) {
    helper.since = Clock::now();
    idle_.push_back(std::move(helper));
}

std::optional<SmbHelpers::Idle> SmbHelpers::Take(const QString& server, const QString& share) {
    for (;;) {
        auto best = idle_.end();
        for (auto one = idle_.begin(); one != idle_.end(); ++one) {
            if (one->server == server &&
                (best == idle_.end() || one->share == share || best->share != share))
                best = one;
        }
        if (best == idle_.end())
            return std::nullopt;
        if (!best->worker->IsAlive()) {
            Drop(best);
            continue;
        }
        Idle taken = std::move(*best);
        idle_.erase(best);
        return taken;
    }
}

std::vector<SmbHelpers::Idle> SmbHelpers::TakeAll(const QString& server) {
    std::vector<Idle> all;
    while (auto helper = Take(server, QString())) {
        all.push_back(std::move(*helper));
        NoteEnded();
        servers_.NoteClosed(server);
    }
    return all;
}

void SmbHelpers::DropOld() {
    const auto now = Clock::now();
    while (!idle_.empty() && now - idle_.front().since > limits_.idle)
        Drop(idle_.begin());
}

void SmbHelpers::KeepFew() {
    QHash<QString, std::size_t> kept;
    for (std::size_t at = idle_.size(); at-- > 0;) {
        const QString& server = idle_[at].server;
        if (!server.isEmpty() && ++kept[server] > limits_.keptPerServer)
            Drop(idle_.begin() + static_cast<std::ptrdiff_t>(at));
    }
}

std::vector<pid_t> SmbHelpers::Processes() const {
    std::vector<pid_t> processes;
    for (const Idle& one : idle_)
        processes.push_back(one.worker->ProcessId());
    return processes;
}

void SmbHelpers::Drop(std::vector<Idle>::iterator helper) {
    NoteEnded();
    if (!helper->server.isEmpty())
        servers_.NoteClosed(helper->server);
    idle_.erase(helper);
}

} // namespace netrove
