#include "logons/LogonTrial.h"

#include "redirector/SmbPool.h"
#include "runtime/Yield.h"

namespace netrove {

void LogonTrial::Begin(const SmbRequest& request, Done done) {
    Cancel();
    isCancelled_ = false;
    thread_ = std::thread([this, request, done = std::move(done)] { Ask(request, done); });
}

void LogonTrial::Cancel() {
    isCancelled_ = true;
    if (thread_.joinable())
        thread_.join();
}

void LogonTrial::Ask(const SmbRequest& request, const Done& done) const {
    SetWaitingPass([this] { return !isCancelled_; });
    SmbPool pool(helper_, limits_);
    const auto take = [](SmbAnswer& part) { return std::holds_alternative<SmbShares>(part); };
    const int status = pool.Run(request, take);
    if (!isCancelled_)
        done(status);
}

} // namespace netrove
