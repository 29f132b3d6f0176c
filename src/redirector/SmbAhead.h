#pragma once

#include "platform/ReadAhead.h"
#include "redirector/SmbLists.h"
#include "redirector/SmbPool.h"
#include "redirector/WalkOrder.h"

#include <QString>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <vector>

namespace netrove {

/// Reads ahead of one walk: threads ask the servers what the walk will ask, nearest first, as many
/// questions at a time as the servers take. The threads end with the object, and what they have
/// fetched goes with them.
class SmbAhead {
public:
    SmbAhead(SmbPool& pool, std::shared_ptr<const WalkPlan> plan)
        : pool_(pool), plan_(std::move(plan)), order_(plan_) {}
    SmbAhead(const SmbAhead&) = delete;
    SmbAhead& operator=(const SmbAhead&) = delete;
    /// Breaks off what is under way.
    ~SmbAhead();

    /// The walk comes to these places next.
    void Expect(const std::vector<WalkOrder::Start>& starts);
    /// The walk won't come to this place or what is below it.
    void Leave(const QString& key);

    /// The walk's own question. Blocks, and calls WhileWaiting(); the status is ECANCELED where
    /// the wait was given up.
    [[nodiscard]] SmbList Ask(const QString& key, const SmbRequest& request);

    /// The walk reads a piece of a file: gives the piece if it has been read ahead, else nothing,
    /// and the walk reads it itself. The pieces of the file that was asked for last are kept.
    /// Blocks while the file is being read ahead, and calls WhileWaiting().
    [[nodiscard]] std::optional<QByteArray> FindPiece(const QString& key, qint64 offset,
                                                      qint64 length);

private:
    struct Task {
        WalkOrder::Question question;
        SmbPool::Turn turn;
    };

    [[nodiscard]] std::vector<SmbPiece> TakeFile(const QString& key);
    void Work();
    [[nodiscard]] SmbList Fetch(Task task);
    [[nodiscard]] SmbList FetchFile(Task task);
    [[nodiscard]] SmbList FetchHere(const SmbRequest& request);
    [[nodiscard]] WalkOrder::State Await(const QString& key, std::unique_lock<std::mutex>& lock);
    void Dispatch();
    void OpenEarly();
    void Give(WalkOrder::Question question, SmbPool::Turn turn);
    [[nodiscard]] bool HasFreeThread();

    SmbPool& pool_;
    const std::shared_ptr<const WalkPlan> plan_;
    const SmbPool::Reached reached_ = [this] {
        const std::scoped_lock lock(mutex_);
        OpenEarly();
    };
    std::mutex mutex_;
    std::condition_variable work_;    ///< there is a task, or the threads are to end
    std::condition_variable arrived_; ///< there is an answer
    WalkOrder order_;
    std::deque<Task> tasks_;
    std::size_t busy_ = 0; ///< threads at work, with those that have a task waiting
    std::atomic<qint64> arriving_ = 0;
    QString lastFile_; ///< by its key
    std::vector<SmbPiece> lastPieces_;
    std::stop_source end_;
    std::vector<std::jthread> threads_; ///< the last member, so that they end first
};

} // namespace netrove
