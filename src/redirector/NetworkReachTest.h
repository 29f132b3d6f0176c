#pragma once

#include "platform/ReachTest.h"
#include "redirector/Network.h"
#include "redirector/OwnConnections.h"

#include <QSet>

#include <atomic>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace netrove {

/// Asks over connections of its own, in threads: what the network knows of dead computers doesn't
/// count. Places that aren't reached over SMB are asked at once, on the caller's thread.
class NetworkReachTest : public ReachTest {
public:
    explicit NetworkReachTest(Network& network) : network_(network) {}
    ~NetworkReachTest() override { Cancel(); }

    void Begin(const QStringList& names) override;
    void Cancel() override;
    void TakeAnswers() override;
    [[nodiscard]] bool IsAsking(const QString& name) const override {
        return waitedFor_.contains(name);
    }
    [[nodiscard]] bool IsRunning() const override { return !waitedFor_.isEmpty(); }
    [[nodiscard]] int CountComputers() override;

private:
    struct Question {
        QString name;
        std::shared_ptr<const RemotePlace> place;
    };
    struct Answer {
        QString name;
        QString trouble; ///< empty where it answers
    };

    void AskHere(const UncPath& path);
    void Work(const std::stop_token& stop);
    [[nodiscard]] bool IsInReport(const QString& name);
    [[nodiscard]] std::vector<NetRecord> Below(const NetRecord& node);

    Network& network_;
    QSet<QString> waitedFor_;

    OwnConnections connections_;
    std::vector<Question> questions_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;
    std::vector<Answer> answers_; ///< not taken yet; guarded by mutex_
    std::stop_source end_;
    std::vector<std::jthread> threads_;
};

} // namespace netrove
