#include "redirector/SmbTurn.h"

#include "redirector/SmbTurns.h"

#include <utility>

namespace netrove {

SmbTurn& SmbTurn::operator=(SmbTurn&& other) noexcept {
    std::swap(turns_, other.turns_);
    std::swap(kind_, other.kind_);
    std::swap(urgency_, other.urgency_);
    std::swap(server_, other.server_);
    std::swap(share_, other.share_);
    std::swap(status_, other.status_);
    std::swap(hasRoom_, other.hasRoom_);
    std::swap(worker_, other.worker_);
    return *this;
}

SmbTurn::~SmbTurn() {
    if (turns_)
        turns_->GiveBack(*this);
}

void SmbTurn::EndConnection() {
    if (worker_) {
        worker_.reset();
        hasRoom_ = true;
    }
}

} // namespace netrove
