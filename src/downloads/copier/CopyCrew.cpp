#include "downloads/copier/CopyCrew.h"

#include "downloads/copier/LocalCopySource.h"
#include "redirector/OwnConnections.h"
#include "runtime/RunTimeError.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <set>
#include <stop_token>
#include <system_error>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// How long the destructor waits for threads in the middle of a step: nearly all end in a small
/// part of this time, but a disk that hangs must not hold up the program's end.
constexpr auto EndLimit = 500ms;

/// The most copies at a time, each over a connection of its own. Client editions of Windows take 20
/// connections in all.
constexpr std::size_t MostCopies = 16;

/// Ends a copy when the crew ends.
struct CopyAbandoned {};

} // namespace

/// What the threads share. A thread that isn't waited for any longer keeps it alive.
struct CopyCrew::Board {
    explicit Board(Done crewDone) : done(std::move(crewDone)) {}

    std::stop_source end;
    const std::shared_ptr<DeadServers> dead = std::make_shared<DeadServers>();
    std::mutex mutex;
    std::condition_variable changed;
    Done done;
    std::deque<std::unique_ptr<const CopyOrder>> orders; ///< waiting
    std::size_t idle = 0;                                ///< number of threads without work
    std::set<std::thread::id> threads;                   ///< the running ones
};

/// One thread's work.
class CopyCrew::Member {
public:
    explicit Member(std::shared_ptr<Board> board)
        : board_(std::move(board)), connections_(board_->dead) {}

    void Run() {
        while (const auto order = Next()) {
            const int errorNumber = Copy(*order);
            const std::scoped_lock lock(board_->mutex);
            if (!end_.stop_requested())
                board_->done(order->id, errorNumber);
        }
        connections_.Close();
        const std::scoped_lock lock(board_->mutex);
        board_->threads.erase(std::this_thread::get_id());
        board_->changed.notify_all();
    }

private:
    void Check() const {
        if (end_.stop_requested())
            throw CopyAbandoned();
    }

    /// The next order; null when the crew ends. Connections wait for work no longer than the
    /// program's others do.
    std::unique_ptr<const CopyOrder> Next() {
        std::unique_lock lock(board_->mutex);
        const auto isDue = [this] { return end_.stop_requested() || !board_->orders.empty(); };
        ++board_->idle;
        if (!board_->changed.wait_for(lock, OwnConnections::IdleTime(), isDue)) {
            connections_.Close();
            board_->changed.wait(lock, isDue);
        }
        --board_->idle;
        if (end_.stop_requested())
            return nullptr;
        auto order = std::move(board_->orders.front());
        board_->orders.pop_front();
        return order;
    }

    int Copy(const CopyOrder& order) {
        try {
            const auto source = Source(order);
            FileCopy(*source, order.source, order.target, *order.meter, [this] { Check(); }).Run();
            return 0;
        } catch (const CopyAbandoned&) {
            return static_cast<int>(ErrorNumber::InternalError); // not reported to anybody
        } catch (...) {
            return CurrentFailure().Number();
        }
    }

    std::unique_ptr<CopySource> Source(const CopyOrder& order) {
        if (const auto* path = std::get_if<QString>(&order.file))
            return std::make_unique<LocalCopySource>(*path);
        return std::get<std::shared_ptr<const RemotePlace>>(order.file)
            ->OpenFile(connections_, end_);
    }

    std::shared_ptr<Board> board_;
    const std::stop_token end_ = board_->end.get_token();
    OwnConnections connections_;
};

CopyCrew::CopyCrew(Done done) : board_(std::make_shared<Board>(std::move(done))) {}

CopyCrew::~CopyCrew() {
    std::unique_lock lock(board_->mutex);
    board_->end.request_stop();
    board_->changed.notify_all();
    board_->changed.wait_for(lock, EndLimit, [this] { return board_->threads.empty(); });
    for (std::jthread& thread : threads_) {
        if (board_->threads.contains(thread.get_id()))
            thread.detach();
    }
}

void CopyCrew::Add(CopyOrder order) {
    const std::scoped_lock lock(board_->mutex);
    board_->orders.push_back(std::make_unique<const CopyOrder>(std::move(order)));
    if (board_->orders.size() > board_->idle && threads_.size() < MostCopies) {
        try {
            threads_.emplace_back([board = board_] { Member(board).Run(); });
            board_->threads.insert(threads_.back().get_id());
        } catch (const std::system_error&) {
            if (threads_.empty()) {
                board_->orders.pop_back();
                throw RunTimeError(ErrorNumber::OutOfMemory);
            }
        }
    }
    board_->changed.notify_one();
}

} // namespace netrove
