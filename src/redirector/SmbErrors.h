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
/// The same of a folder below, where the computer is what fails; else empty.
[[nodiscard]] QString TroubleOfFolder(int status);

/// The run-time failure that a request's status (an errno, not 0) stands for, by what was asked.
/// A server that can't be reached, for whatever reason, is a path that isn't there.
[[nodiscard]] ErrorNumber ErrorOfSmbStatus(int status, SmbAction action);

/// The same of a request that names a path. What isn't there may be the file or its folder: the
/// server says the same for both, and is asked again. Blocks, and calls WhileWaiting().
[[nodiscard]] ErrorNumber ErrorOfSmbRequest(SmbPool& pool, const SmbRequest& request, int status,
                                            SmbAction action, const std::stop_token& stop = {});

} // namespace netrove
