#include "logons/LogonTrial.h"

#include "runtime/Yield.h"

namespace netrove {

void LogonTrial::Begin(std::shared_ptr<const RemotePlace> place, const StoredLogon& logon,
                       Done done) {
    Cancel();
    isCancelled_ = false;
    thread_ = std::thread([this, place = std::move(place), logon, done = std::move(done)] {
        SetWaitingPass([this] { return !isCancelled_; });
        const LogonResult result = place->TryLogon(logon);
        if (!isCancelled_)
            done(result);
    });
}

void LogonTrial::Cancel() {
    isCancelled_ = true;
    if (thread_.joinable())
        thread_.join();
}

} // namespace netrove
