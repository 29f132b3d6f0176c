#include "downloads/copier/CopyCrew.h"

#include "downloads/copier/FileCopy.h"
#include "downloads/copier/LocalCopySource.h"
#include "redirector/OwnConnections.h"
#include "runtime/RunTimeError.h"
#include "runtime/Yield.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// How long the end of the crew waits for threads that are in the middle of a step: nearly all
/// come within a small part of it, but a disk that hangs must not hold up the program's end.
constexpr auto EndLimit = 500ms;

/// Copies at a time, each over a connection of its own. Client editions of Windows take 20
/// connections in all.
constexpr std::size_t MostCopies = 16;

/// Ends a copy when the crew ends.
struct CopyAbandoned {};

} // namespace

/// What the threads share. A thread that can't be waited for keeps it alive.
struct CopyCrew::Board {
    explicit Board(Done crewDone) : done(std::move(crewDone)) {}

    std::atomic<bool> isAbandoned = false;
    std::mutex mutex;
    std::condition_variable changed;
    Done done;
    std::deque<std::unique_ptr<const CopyOrder>> orders; ///< that wait
    std::size_t idle = 0;                                ///< threads
    std::size_t threads = 0;
};

/// One thread's work.
class CopyCrew::Member {
public:
    explicit Member(std::shared_ptr<Board> board) : board_(std::move(board)) {}

    void Run() {
        SetWaitingPass([this] { return !board_->isAbandoned; });
        while (const auto order = Next()) {
            const int errorNumber = Copy(*order);
            const std::scoped_lock lock(board_->mutex);
            if (!board_->isAbandoned)
                board_->done(order->id, errorNumber);
        }
        connections_.Close();
        const std::scoped_lock lock(board_->mutex);
        --board_->threads;
        board_->changed.notify_all();
    }

private:
    void Check() const {
        if (board_->isAbandoned)
            throw CopyAbandoned();
    }

    /// Null when the crew ends. Connections don't wait longer for work than others of the program.
    std::unique_ptr<const CopyOrder> Next() {
        std::unique_lock lock(board_->mutex);
        const auto isDue = [this] { return board_->isAbandoned || !board_->orders.empty(); };
        ++board_->idle;
        if (!board_->changed.wait_for(lock, OwnConnections::IdleTime(), isDue)) {
            connections_.Close();
            board_->changed.wait(lock, isDue);
        }
        --board_->idle;
        if (board_->isAbandoned)
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
            return static_cast<int>(ErrorNumber::InternalError); // nobody hears it
        } catch (...) {
            return CurrentFailure().Number();
        }
    }

    std::unique_ptr<CopySource> Source(const CopyOrder& order) {
        if (const auto* path = std::get_if<QString>(&order.file))
            return std::make_unique<LocalCopySource>(*path);
        return std::get<std::shared_ptr<const RemotePlace>>(order.file)->OpenFile(connections_);
    }

    std::shared_ptr<Board> board_;
    OwnConnections connections_;
};

CopyCrew::CopyCrew(Done done) : board_(std::make_shared<Board>(std::move(done))) {}

CopyCrew::~CopyCrew() {
    std::unique_lock lock(board_->mutex);
    board_->isAbandoned = true;
    board_->changed.notify_all();
    board_->changed.wait_for(lock, EndLimit, [this] { return board_->threads == 0; });
}

void CopyCrew::Add(CopyOrder order) {
    const std::scoped_lock lock(board_->mutex);
    board_->orders.push_back(std::make_unique<const CopyOrder>(std::move(order)));
    if (board_->orders.size() > board_->idle && board_->threads < MostCopies) {
        try {
            std::thread([board = board_] { Member(board).Run(); }).detach();
            ++board_->threads;
        } catch (const std::system_error&) {
            if (board_->threads == 0) {
                board_->orders.pop_back();
                throw RunTimeError(ErrorNumber::OutOfMemory);
            }
        }
    }
    board_->changed.notify_one();
}

} // namespace netrove
