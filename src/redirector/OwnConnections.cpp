#include "redirector/OwnConnections.h"

#include "redirector/SmbPool.h"
#include "redirector/SmbSettings.h"

namespace netrove {

OwnConnections::OwnConnections(std::shared_ptr<DeadServers> dead) : dead_(std::move(dead)) {}
OwnConnections::~OwnConnections() = default;

std::chrono::milliseconds OwnConnections::IdleTime() {
    return SmbLimits().idle;
}

void OwnConnections::Close() {
    pool_.reset();
}

SmbPool& OwnConnections::Pool(const std::shared_ptr<const SmbSettings>& settings) {
    const std::scoped_lock lock(mutex_);
    if (!pool_)
        pool_ = std::make_unique<SmbPool>(settings->helper, settings->limits, settings->logons,
                                          dead_ ? dead_ : std::make_shared<DeadServers>());
    return *pool_;
}

} // namespace netrove
