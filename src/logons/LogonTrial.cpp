#include "logons/LogonTrial.h"

namespace netrove {

void LogonTrial::Begin(std::shared_ptr<const RemotePlace> place, const StoredLogon& logon,
                       Done done) {
    Cancel();
    thread_ = std::jthread(
        [place = std::move(place), logon, done = std::move(done)](const std::stop_token& stop) {
            const LogonResult result = place->TryLogon(logon, stop);
            if (!stop.stop_requested())
                done(result);
        });
}

void LogonTrial::Cancel() {
    thread_ = {};
}

} // namespace netrove
