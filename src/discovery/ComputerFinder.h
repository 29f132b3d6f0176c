#pragma once

#include "discovery/Answer.h"
#include "discovery/ComputerSource.h"
#include "discovery/UniqueDescriptor.h"

#include <chrono>
#include <mutex>
#include <thread>

namespace netrove {

/// Asks the LAN for its computers, on a thread of its own: by WS-Discovery, DNS-SD and NetBIOS side
/// by side. Sends nothing before Start(). May be used from any thread.
class ComputerFinder : public ComputerSource {
public:
    /// How long a round waits for answers. Hosts delay their answers by up to half a second, so
    /// that not all answer at once.
    static constexpr std::chrono::milliseconds DefaultWindow{1500};

    explicit ComputerFinder(std::chrono::milliseconds window = DefaultWindow);
    ~ComputerFinder() override; ///< ends a running round at once

    void Start() override;
    [[nodiscard]] bool IsRunning() const override;
    [[nodiscard]] std::vector<FoundComputer> Found() const override;
    [[nodiscard]] int Descriptor() const override { return news_.Number(); }

private:
    void Run();
    void Take(Answer answer);

    const std::chrono::milliseconds window_;
    const UniqueDescriptor stop_;
    const UniqueDescriptor news_;

    mutable std::mutex mutex_; ///< guards what follows
    bool isRunning_ = false;
    Answers earlier_; ///< of the previous round, while one is running
    Answers answers_;
    std::thread thread_;
};

} // namespace netrove
