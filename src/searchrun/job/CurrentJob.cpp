#include "searchrun/job/CurrentJob.h"

#include <utility>

namespace netrove {

bool IsLong(JobKind kind) {
    switch (kind) {
    case JobKind::Search:
    case JobKind::Load:
    case JobKind::Save:
        return true;
    case JobKind::Clear:
    case JobKind::Browse:
        return false;
    }
    return false;
}

std::optional<CurrentJob::Run> CurrentJob::Begin(JobKind kind) {
    if (IsRunning())
        return std::nullopt;
    kind_ = kind;
    isToStop_ = false;
    return Run(*this);
}

void CurrentJob::Run::Show() {
    if (job_ == nullptr || std::exchange(job_->isShown_, true))
        return;
    if (job_->Shown)
        job_->Shown(*job_->kind_);
}

void CurrentJob::Run::End() {
    CurrentJob* const job = std::exchange(job_, nullptr);
    if (job == nullptr)
        return;
    const JobKind kind = *job->kind_;
    job->kind_.reset();
    if (std::exchange(job->isShown_, false) && job->Hidden)
        job->Hidden(kind);
}

} // namespace netrove
