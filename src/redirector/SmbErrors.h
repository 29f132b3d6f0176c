#pragma once

#include "runtime/RunTimeError.h"

#include <QString>

#include <stop_token>

namespace netrove {

class SmbPool;
struct SmbRequest;

enum class SmbAction { Look, Read };

/// Why a computer couldn't be asked for its shares, or a share for its files, as a sentence for the
/// user: what such a status means. Empty for ECANCELED.
[[nodiscard]] QString TroubleOfComputer(int status);
[[nodiscard]] QString TroubleOfShare(int status);
/// The same for a folder below a share, if it is the computer that fails; else empty.
[[nodiscard]] QString TroubleOfFolder(int status);

/// The run-time failure that a request's status (an errno, not 0) stands for, by what was asked.
/// A server that can't be reached, for whatever reason, counts as a path that doesn't exist.
[[nodiscard]] ErrorNumber ErrorOfSmbStatus(int status, SmbAction action);

/// The same for a request that names a path. If the path isn't found, either the file or its folder
/// may be missing: the server gives the same status for both, so it is asked again. Blocks, and
/// calls WhileWaiting().
[[nodiscard]] ErrorNumber ErrorOfSmbRequest(SmbPool& pool, const SmbRequest& request, int status,
                                            SmbAction action, const std::stop_token& stop = {});

} // namespace netrove
