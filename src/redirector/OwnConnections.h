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

/// The connections of somebody who asks remote places apart from the walk. They are made when they
/// are needed and kept from one place to the next. What the walk knows of dead computers doesn't
/// count; what is in `dead` does, and is shared with whoever else has it. May be used by several
/// threads at once.
class OwnConnections {
public:
    explicit OwnConnections(std::shared_ptr<DeadServers> dead = nullptr);
    OwnConnections(const OwnConnections&) = delete;
    OwnConnections& operator=(const OwnConnections&) = delete;
    ~OwnConnections();

    /// After so long without work they should be closed.
    [[nodiscard]] static std::chrono::milliseconds IdleTime();

    /// Closes all. Nobody may be using them.
    void Close();

    /// For places that are asked over SMB.
    [[nodiscard]] SmbPool& Pool(const std::shared_ptr<const SmbSettings>& settings);
    /// The bytes of the lists that are just coming.
    [[nodiscard]] std::atomic<qint64>& Arriving() { return arriving_; }

private:
    const std::shared_ptr<DeadServers> dead_; ///< null where nobody else knows them
    std::mutex mutex_;
    std::unique_ptr<SmbPool> pool_;
    std::atomic<qint64> arriving_ = 0;
};

} // namespace netrove
