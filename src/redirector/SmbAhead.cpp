#include "redirector/SmbAhead.h"

#include "redirector/SmbFileReader.h"
#include "redirector/WaitingPace.h"
#include "runtime/RunTimeError.h"
#include "runtime/Yield.h"

#include <cerrno>
#include <system_error>

namespace netrove {
namespace {

/// More than helpers, as a test whether a computer is there needs none.
constexpr std::size_t MaxThreads = 64;

/// Bytes that may be on their way into memory; a listing beyond that is left to the walk.
constexpr qint64 MaxArriving = 60'000'000;

} // namespace

SmbAhead::~SmbAhead() {
    {
        const std::scoped_lock lock(mutex_);
        hasEnded_ = true;
        tasks_.clear();
    }
    work_.notify_all();
    for (std::thread& thread : threads_)
        thread.join();
}

void SmbAhead::Expect(const std::vector<WalkOrder::Start>& starts) {
    const std::scoped_lock lock(mutex_);
    order_.Expect(starts);
    Dispatch();
}

void SmbAhead::Leave(const QString& key) {
    const std::scoped_lock lock(mutex_);
    order_.Forget(key);
    Dispatch();
}

SmbList SmbAhead::Ask(const QString& key, const SmbRequest& request) {
    std::unique_lock lock(mutex_);
    const WalkOrder::State state = Await(key, lock);
    if (state == WalkOrder::State::Asked)
        return {.status = ECANCELED};
    if (state == WalkOrder::State::Answered) {
        SmbList list = order_.Take(key);
        Dispatch();
        return list;
    }
    // Without a thread between, as it is waited for.
    const bool isExpected = state == WalkOrder::State::Waiting;
    const quint64 id = isExpected ? order_.Ask(key) : 0;
    Dispatch();
    lock.unlock();
    SmbList list = FetchHere(request);
    lock.lock();
    if (!isExpected)
        return list;
    if (list.status == ECANCELED) {
        order_.Drop(id);
        return list;
    }
    order_.Answer(id, list);
    static_cast<void>(order_.Take(key));
    Dispatch();
    return list;
}

std::vector<SmbPiece> SmbAhead::TakeFile(const QString& key) {
    std::unique_lock lock(mutex_);
    const WalkOrder::State state = Await(key, lock);
    std::vector<SmbPiece> pieces;
    if (state == WalkOrder::State::Answered)
        pieces = order_.Take(key).pieces;
    else
        order_.Forget(key);
    Dispatch();
    return pieces;
}

/// How far the place is, once it isn't under way any more; it is still if the wait is given up.
WalkOrder::State SmbAhead::Await(const QString& key, std::unique_lock<std::mutex>& lock) {
    WaitingPace pace;
    WalkOrder::State state = order_.Reach(key);
    for (bool goesOn = true; state == WalkOrder::State::Asked && goesOn;) {
        arrived_.wait_until(lock, pace.Next());
        lock.unlock();
        goesOn = pace.Pass();
        lock.lock();
        state = order_.Reach(key);
    }
    return state;
}

SmbList SmbAhead::FetchHere(const SmbRequest& request) {
    return FetchList(request, [this](const SmbRequest& asked, const SmbWorker::Part& part) {
        return pool_.Run(asked, part, reached_);
    });
}

SmbList SmbAhead::Fetch(Task task) {
    if (task.question.request.kind == SmbRequest::Kind::Read)
        return FetchFile(std::move(task));
    const auto run = [&](const SmbRequest& asked, const SmbWorker::Part& part) {
        return pool_.Run(std::move(task.turn), asked, part, reached_);
    };
    return FetchList(task.question.request, run, arriving_, MaxArriving);
}

/// What was read before a failure counts. The failure is the walk's to meet.
SmbList SmbAhead::FetchFile(Task task) {
    std::optional turn = std::move(task.turn);
    SmbFileReader file(task.question.request, task.question.file,
                       [&](const SmbRequest& asked, const SmbWorker::Part& part) {
                           if (!turn)
                               return pool_.Run(asked, part);
                           SmbPool::Turn first = std::move(*turn);
                           turn.reset();
                           return pool_.Run(std::move(first), asked, part, reached_);
                       });
    static_cast<void>(FailureOf([&] { plan_->ReadFile(file, task.question.path); }));
    return {.status = file.Status() == ECANCELED ? ECANCELED : 0, .pieces = file.TakePieces()};
}

void SmbAhead::Work() {
    SetWaitingPass([this] { return !hasEnded_; });
    std::unique_lock lock(mutex_);
    for (;;) {
        work_.wait(lock, [this] { return hasEnded_ || !tasks_.empty(); });
        if (hasEnded_)
            return;
        Task task = std::move(tasks_.front());
        tasks_.pop_front();
        const quint64 id = task.question.id;
        lock.unlock();
        SmbList list;
        if (FailureOf([&] { list = Fetch(std::move(task)); }))
            list.status = ECANCELED; // the walk meets it, if it is still there then
        lock.lock();
        --busy_;
        if (list.status == ECANCELED || list.status == ENOBUFS)
            order_.Drop(id);
        else
            order_.Answer(id, std::move(list));
        Dispatch();
        arrived_.notify_all();
    }
}

/// Gives threads what may be asked now.
void SmbAhead::Dispatch() {
    while (!hasEnded_ && HasFreeThread()) {
        std::optional<SmbPool::Turn> turn;
        const auto grant = [&](const SmbRequest& request, std::size_t waiting) {
            turn = pool_.TryTakeTurn(request, waiting);
            return turn.has_value();
        };
        auto question = order_.Next(grant);
        if (!question)
            break;
        Give(std::move(*question), std::move(*turn));
    }
    OpenEarly();
}

/// Opens connections before there is work for them. What they ask is only to get into the share.
/// Where there are other computers, these need the helpers.
void SmbAhead::OpenEarly() {
    const auto folder = order_.FolderOfOnlyComputer();
    if (!folder)
        return;
    SmbRequest entry = *folder;
    entry.kind = SmbRequest::Kind::Stat;
    entry.path.clear();
    while (!hasEnded_ && HasFreeThread()) {
        auto turn = pool_.TryTakeEarlyTurn(entry);
        if (!turn)
            return;
        Give({.id = WalkOrder::NoQuestion, .request = entry}, std::move(*turn));
    }
}

void SmbAhead::Give(WalkOrder::Question question, SmbPool::Turn turn) {
    tasks_.push_back({.question = std::move(question), .turn = std::move(turn)});
    ++busy_;
    work_.notify_one();
}

bool SmbAhead::HasFreeThread() {
    if (busy_ < threads_.size())
        return true;
    if (threads_.size() == MaxThreads)
        return false;
    try {
        threads_.emplace_back([this] { Work(); });
        return true;
    } catch (const std::system_error&) {
        return false; // the walk does without
    }
}

} // namespace netrove
