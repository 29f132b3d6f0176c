#include "redirector/DeadServers.h"

namespace netrove {

int DeadServers::Status(const QString& name) const {
    const std::scoped_lock lock(mutex_);
    const auto dead = dead_.constFind(name);
    return dead != dead_.cend() && (isWalking_ || now_() < dead->until) ? dead->status : 0;
}

void DeadServers::Bury(const QString& name, int status, std::chrono::milliseconds span) {
    const std::scoped_lock lock(mutex_);
    if (!isWalking_)
        dead_.removeIf([now = now_()](const auto& one) { return now >= one->until; });
    dead_.insert(name, {.status = status, .until = now_() + span});
}

void DeadServers::Revive(const QString& name) {
    const std::scoped_lock lock(mutex_);
    dead_.remove(name);
}

void DeadServers::BeginWalk() {
    const std::scoped_lock lock(mutex_);
    isWalking_ = true;
    dead_.clear();
}

void DeadServers::EndWalk() {
    const std::scoped_lock lock(mutex_);
    isWalking_ = false;
}

} // namespace netrove
