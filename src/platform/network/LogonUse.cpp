#include "platform/network/LogonUse.h"

#include "platform/network/WaitingPoll.h"

namespace netrove {
namespace {

/// Waits one step.
void Pause() {
    WaitingPoll step(std::chrono::milliseconds(0));
    (void)step.Wait({});
}

} // namespace

LogonUse::LogonUse(Logons* logons, SmbRequest& request) : logons_(logons), request_(request) {
    if (!logons)
        return;
    while (logons->IsReading())
        Pause();
    Logons::Turn turn = logons->Apply(request);
    for (; turn == Logons::Turn::Wait; turn = logons->Apply(request))
        Pause();
    isRefused_ = turn == Logons::Turn::Refused;
    if (isRefused_)
        logons_ = nullptr;
}

LogonUse::~LogonUse() {
    if (logons_)
        logons_->Release(request_);
}

int LogonUse::End(int status) {
    const int result = logons_ ? logons_->Note(request_, status) : status;
    logons_ = nullptr;
    return result;
}

} // namespace netrove
