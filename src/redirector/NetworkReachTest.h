#pragma once

#include "platform/ReachTest.h"
#include "redirector/Network.h"
#include "redirector/SmbPool.h"

#include <QSet>

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace netrove {

/// Asks over connections of its own, in threads: what the network knows of dead computers doesn't
/// count. What isn't reached over SMB is asked at once, on the caller's thread.
class NetworkReachTest : public ReachTest {
public:
    /// Computers are asked with the logons stored in `logons`.
    NetworkReachTest(Network& network, QString helper, std::shared_ptr<Logons> logons,
                     const SmbLimits& limits = {})
        : network_(network)
        , helper_(std::move(helper))
        , logons_(std::move(logons))
        , limits_(limits) {}
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
        SmbRequest request;
    };
    struct Answer {
        QString name;
        QString trouble; ///< empty where it answers
    };

    void AskHere(const UncPath& path);
    void Work();
    [[nodiscard]] int Ask(const SmbRequest& request);
    [[nodiscard]] bool IsInReport(const QString& name);
    [[nodiscard]] std::vector<NetRecord> Below(const NetRecord& node);

    Network& network_;
    QString helper_;
    std::shared_ptr<Logons> logons_;
    SmbLimits limits_;
    QSet<QString> waitedFor_;

    std::unique_ptr<SmbPool> pool_;
    std::vector<Question> questions_;
    std::atomic<std::size_t> next_ = 0;
    std::atomic<qint64> arriving_ = 0;
    std::atomic<bool> isCancelled_ = false;
    std::vector<std::thread> threads_;
    std::mutex mutex_;
    std::vector<Answer> answers_; ///< that nobody has taken yet; behind the mutex
};

} // namespace netrove
