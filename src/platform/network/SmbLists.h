#pragma once

#include "platform/network/RecentListings.h"
#include "platform/network/SmbWorker.h"
#include "smb/SmbMessages.h"

#include <atomic>
#include <functional>

namespace netrove {

/// The whole answer to the question for a server's shares or a folder's entries.
struct SmbList {
    int status = 0;                       ///< an errno; what else is here counts if it is 0
    RecentListings::Listing entries = {}; ///< never null after a success
    /// Those that are shown: whose name ends in "$" is there for who types its path.
    SmbShares shares = {};
};

/// How a request is put to its server: SmbPool::Run.
using SmbRun = std::function<int(const SmbRequest&, const SmbWorker::Part&)>;

/// Asks for a list (SmbRequest::Kind::ListFolder or ListShares).
[[nodiscard]] SmbList FetchList(const SmbRequest& request, const SmbRun& run);

/// The same as long as what `arriving` counts in all, in bytes, stays within `most`; else the
/// status is ENOBUFS. What has come is counted until the end of the call.
[[nodiscard]] SmbList FetchList(const SmbRequest& request, const SmbRun& run,
                                std::atomic<qint64>& arriving, qint64 most);

/// The memory that entries take, in bytes.
[[nodiscard]] qint64 MemoryOf(const SmbEntries& entries);

} // namespace netrove
