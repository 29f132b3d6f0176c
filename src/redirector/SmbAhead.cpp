#include "redirector/SmbAhead.h"

#include "redirector/SmbFileReader.h"
#include "runtime/RunTimeError.h"
#include "runtime/Waiting.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace netrove {
namespace {

/// More than there are helpers, as to test whether a computer is there needs no helper.
constexpr std::size_t MaxThreads = 64;

/// Bytes that may be on their way into memory; a listing beyond that is left to the walk.
constexpr qint64 MaxArriving = 60'000'000;

} // namespace

SmbAhead::~SmbAhead() {
    const std::scoped_lock lock(mutex_);
    end_.request_stop();
    tasks_.clear();
    work_.notify_all();
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
    // The walk waits for this answer: ask on its own thread.
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

std::optional<QByteArray> SmbAhead::FindPiece(const QString& key, qint64 offset, qint64 length) {
    if (key != lastFile_) {
        lastPieces_ = TakeFile(key);
        lastFile_ = key;
    }
    const auto found = std::ranges::find_if(lastPieces_, [&](const SmbPiece& piece) {
        return piece.offset == offset && piece.asked == length;
    });
    return found == lastPieces_.end() ? std::nullopt : std::optional(found->bytes);
}

/// What has been read ahead of a file. The rest is left to the walk.
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

/// Waits while the place's question is under way. Returns the place's state: still Asked if the
/// wait was given up.
WalkOrder::State SmbAhead::Await(const QString& key, std::unique_lock<std::mutex>& lock) {
    Waiting waiting;
    WalkOrder::State state = order_.Reach(key);
    for (bool goesOn = true; state == WalkOrder::State::Asked && goesOn;) {
        goesOn = waiting.ForNotice(arrived_, lock);
        state = order_.Reach(key);
    }
    return state;
}

SmbList SmbAhead::FetchHere(const SmbRequest& request) {
    return FetchList(request, [this](const SmbRequest& asked, const SmbWorker::Part& part) {
        return pool_.Run(asked, part, {}, reached_);
    });
}

SmbList SmbAhead::Fetch(Task task) {
    if (task.question.request.kind == SmbRequest::Kind::Read)
        return FetchFile(std::move(task));
    const auto run = [&](const SmbRequest& asked, const SmbWorker::Part& part) {
        return pool_.Run(std::move(task.turn), asked, part, end_.get_token(), reached_);
    };
    return FetchList(task.question.request, run, arriving_, MaxArriving);
}

/// What was read before a failure is kept. The walk will meet the failure itself.
SmbList SmbAhead::FetchFile(Task task) {
    SmbFileReader file(task.question.request, task.question.file,
                       [&](const SmbRequest& asked, const SmbWorker::Part& part) {
                           const std::stop_token end = end_.get_token();
                           return task.turn
                                      ? pool_.Run(std::move(task.turn), asked, part, end, reached_)
                                      : pool_.Run(asked, part, end);
                       });
    static_cast<void>(FailureOf([&] { plan_->ReadFile(file, task.question.path); }));
    return {.status = file.Status() == ECANCELED ? ECANCELED : 0, .pieces = file.TakePieces()};
}

void SmbAhead::Work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        work_.wait(lock, [this] { return end_.stop_requested() || !tasks_.empty(); });
        if (end_.stop_requested())
            return;
        Task task = std::move(tasks_.front());
        tasks_.pop_front();
        const quint64 id = task.question.id;
        lock.unlock();
        SmbList list;
        if (FailureOf([&] { list = Fetch(std::move(task)); }))
            list.status = ECANCELED; // the walk asks itself, and meets the failure if it lasts
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

/// Gives the threads the questions that may be asked now.
void SmbAhead::Dispatch() {
    while (!end_.stop_requested() && HasFreeThread()) {
        SmbPool::Turn turn;
        const auto grant = [&](const SmbRequest& request, std::size_t waiting) {
            turn = pool_.TryTakeTurn(request, waiting);
            return turn != nullptr;
        };
        auto question = order_.Next(grant);
        if (!question)
            break;
        Give(std::move(*question), std::move(turn));
    }
    OpenEarly();
}

/// Opens connections before there is work for them: their questions only get them into the share.
/// Not while there are other computers, which need the helpers.
void SmbAhead::OpenEarly() {
    const auto folder = order_.FolderOfOnlyComputer();
    if (!folder)
        return;
    SmbRequest entry = *folder;
    entry.kind = SmbRequest::Kind::Stat;
    entry.path.clear();
    while (!end_.stop_requested() && HasFreeThread()) {
        auto turn = pool_.TryTakeEarlyTurn(entry);
        if (!turn)
            return;
        Give({.id = WalkOrder::NoQuestion, .request = entry}, std::move(turn));
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
