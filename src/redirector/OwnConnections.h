#pragma once

#include "redirector/DeadServers.h"

#include <QtGlobal>

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>

namespace netrove {

class SmbPool;
struct SmbSettings;

/// The connections of a part of the program that asks remote places apart from the walk. They are
/// made when they are needed and kept from one place to the next. What the walk knows of dead
/// computers doesn't count; what is in `dead` does, and may be shared with others. May be used by
/// several threads at once.
class OwnConnections {
public:
    explicit OwnConnections(std::shared_ptr<DeadServers> dead = nullptr);
    OwnConnections(const OwnConnections&) = delete;
    OwnConnections& operator=(const OwnConnections&) = delete;
    ~OwnConnections();

    /// How long the connections may be without work before they should be closed.
    [[nodiscard]] static std::chrono::milliseconds IdleTime();

    /// Closes all. Nobody may be using them.
    void Close();

    /// For places that are asked over SMB.
    [[nodiscard]] SmbPool& Pool(const std::shared_ptr<const SmbSettings>& settings);
    /// The bytes of the lists that are arriving now.
    [[nodiscard]] std::atomic<qint64>& Arriving() { return arriving_; }

private:
    const std::shared_ptr<DeadServers> dead_; ///< null where they are shared with nobody
    std::mutex mutex_;
    std::unique_ptr<SmbPool> pool_;
    std::atomic<qint64> arriving_ = 0;
};

} // namespace netrove
