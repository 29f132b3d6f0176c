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

/// The bytes of a file from `offset` on, where `asked` bytes were asked for: fewer at its end.
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
    /// Without those whose names end in "$", which are reached only by typing their paths.
    SmbShares shares = {};
    FolderPrint print = {}; ///< of a folder
    std::vector<SmbPiece> pieces = {};

    /// Whether there are shares or entries to go on with: all of them, or those that had come when
    /// the list broke off. False if the wait for the list was given up.
    [[nodiscard]] bool IsThere() const {
        const bool hasSome = !shares.empty() || (entries && !entries->empty());
        return status == 0 || (status != ECANCELED && hasSome);
    }
};

/// How a request is put to its server: SmbPool::Run.
using SmbRun = std::function<int(const SmbRequest&, const SmbWorker::Part&)>;

/// Asks for a list (SmbRequest::Kind::ListFolder or ListShares).
[[nodiscard]] SmbList FetchList(const SmbRequest& request, const SmbRun& run);

/// The same, but the status is ENOBUFS once `arriving`, which counts the bytes of all lists that
/// are arriving, exceeds `most`. This list's bytes are counted until the end of the call.
[[nodiscard]] SmbList FetchList(const SmbRequest& request, const SmbRun& run,
                                std::atomic<qint64>& arriving, qint64 most);

/// Reads a piece of a file (SmbRequest::Kind::Read) into `bytes`. Returns 0 or an errno.
[[nodiscard]] int FetchPiece(const SmbRequest& request, const SmbRun& run, QByteArray& bytes);

/// The memory, in bytes, that the entries take, or an answer's entries and pieces.
[[nodiscard]] qint64 MemoryOf(const SmbEntries& entries);
[[nodiscard]] qint64 MemoryOf(const SmbList& list);

} // namespace netrove
