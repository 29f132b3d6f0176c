#pragma once

#include "redirector/FolderTrail.h"
#include "redirector/SmbWorker.h"
#include "smb/SmbMessages.h"

#include <atomic>
#include <cerrno>
#include <functional>
#include <memory>

namespace netrove {

using SmbListing = std::shared_ptr<const SmbEntries>;

/// What a file has from `offset` on, where so many bytes were asked for: fewer at its end.
struct SmbPiece {
    qint64 offset = 0;
    qint64 asked = 0;
    QByteArray bytes = {};
};

/// The whole answer to the question for a server's shares or a folder's entries, or what was read
/// of a file.
struct SmbList {
    int status = 0; ///< an errno
    /// Never null after a success.
    SmbListing entries = {};
    /// Those that are shown: whose name ends in "$" is there for who types its path.
    SmbShares shares = {};
    FolderPrint print = {}; ///< of a folder
    std::vector<SmbPiece> pieces = {};

    /// Whether there are shares or entries to go on with: all, or what had come when the list broke
    /// off. One whose wait was given up is none.
    [[nodiscard]] bool IsThere() const {
        const bool hasSome = !shares.empty() || (entries && !entries->empty());
        return status == 0 || (status != ECANCELED && hasSome);
    }
};

/// How a request is put to its server: SmbPool::Run.
using SmbRun = std::function<int(const SmbRequest&, const SmbWorker::Part&)>;

/// Asks for a list (SmbRequest::Kind::ListFolder or ListShares).
[[nodiscard]] SmbList FetchList(const SmbRequest& request, const SmbRun& run);

/// The same as long as what `arriving` counts in all, in bytes, stays within `most`; else the
/// status is ENOBUFS. What has come is counted until the end of the call.
[[nodiscard]] SmbList FetchList(const SmbRequest& request, const SmbRun& run,
                                std::atomic<qint64>& arriving, qint64 most);

/// Reads a piece of a file (SmbRequest::Kind::Read) into `bytes`. Gives 0 or an errno.
[[nodiscard]] int FetchPiece(const SmbRequest& request, const SmbRun& run, QByteArray& bytes);

/// The memory that entries take, or the entries and pieces of an answer, in bytes.
[[nodiscard]] qint64 MemoryOf(const SmbEntries& entries);
[[nodiscard]] qint64 MemoryOf(const SmbList& list);

} // namespace netrove
