#include "redirector/LogonUse.h"

#include "redirector/WaitingPoll.h"

#include <cerrno>

namespace netrove {
namespace {

/// Waits one step; false where the wait is given up.
bool Pause() {
    WaitingPoll step(std::chrono::milliseconds(0));
    return step.Wait({}) != ECANCELED;
}

} // namespace

LogonUse::LogonUse(Logons* logons, SmbRequest& request) : logons_(logons), request_(request) {
    if (logons)
        status_ = TakeTurn();
    if (status_ != 0)
        logons_ = nullptr;
}

/// 0 when it's this request's turn.
int LogonUse::TakeTurn() {
    while (logons_->IsReading()) {
        if (!Pause())
            return ECANCELED;
    }
    for (;;) {
        switch (logons_->Apply(request_)) {
        case Logons::Turn::Go:
            return 0;
        case Logons::Turn::Refused:
            return EACCES;
        case Logons::Turn::Wait:
            if (!Pause())
                return ECANCELED;
        }
    }
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
