#include "discovery/ComputerFinder.h"

#include "discovery/DiscoveryRound.h"
#include "discovery/InquiryLimits.h"
#include "runtime/RunTimeError.h"

#include <system_error>

#include <sys/eventfd.h>

namespace netrove {
namespace {

void Signal(const UniqueDescriptor& event) {
    eventfd_write(event.Number(), 1);
}

} // namespace

ComputerFinder::ComputerFinder(std::chrono::milliseconds window)
    : window_(window)
    , stop_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , news_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (!stop_.IsOpen() || !news_.IsOpen())
        throw RunTimeError(ErrorNumber::TooManyFiles);
}

ComputerFinder::~ComputerFinder() {
    Signal(stop_);
    if (thread_.joinable())
        thread_.join();
}

void ComputerFinder::Start() {
    const std::scoped_lock lock(mutex_);
    if (isRunning_)
        return;
    if (thread_.joinable())
        thread_.join(); // the thread has nothing left to do
    earlier_ = std::move(answers_);
    answers_.clear();
    try {
        thread_ = std::thread([this] { Run(); });
        isRunning_ = true;
    } catch (const std::system_error&) {
        Signal(news_); // a round that can't begin counts as ended
    }
}

bool ComputerFinder::IsRunning() const {
    const std::scoped_lock lock(mutex_);
    return isRunning_;
}

std::vector<FoundComputer> ComputerFinder::Found() const {
    eventfd_t count = 0;
    eventfd_read(news_.Number(), &count);
    std::unique_lock lock(mutex_);
    Answers answers = answers_;
    answers.insert(earlier_.begin(), earlier_.end());
    lock.unlock();
    return MergeAnswers(answers);
}

void ComputerFinder::Run() {
    try {
        DiscoveryRound([this](Answer answer) {
            Take(std::move(answer));
        }).Run(window_, stop_.Number());
    } catch (const std::exception&) {
        // Most likely out of memory: the round ends with what it has.
    }
    const std::scoped_lock lock(mutex_);
    earlier_.clear();
    isRunning_ = false;
    Signal(news_);
}

void ComputerFinder::Take(Answer answer) {
    const std::scoped_lock lock(mutex_);
    const bool isNew = earlier_.count(answer) == 0;
    constexpr std::size_t ways = 3;
    if (answers_.size() < ways * InquiryLimits::Answers &&
        answers_.insert(std::move(answer)).second && isNew)
        Signal(news_);
}

} // namespace netrove
