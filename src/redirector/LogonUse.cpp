#include "redirector/LogonUse.h"

#include "runtime/Waiting.h"

#include <cerrno>

namespace netrove {
namespace {

/// How long to wait before asking again: to try a logon takes some milliseconds.
constexpr std::chrono::milliseconds Moment{20};

} // namespace

LogonUse::LogonUse(Logons* logons, SmbRequest& request, std::stop_token stop)
    : logons_(logons), request_(request), stop_(std::move(stop)) {
    if (logons)
        status_ = TakeTurn();
    if (status_ != 0)
        logons_ = nullptr;
}

/// Waits until it is this request's turn. Returns what Status() is to be.
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

/// False where the wait is given up.
bool LogonUse::Pause() const {
    return Waiting(Moment, stop_).ForTime();
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
