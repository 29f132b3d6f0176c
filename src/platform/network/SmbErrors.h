#pragma once

#include "runtime/RunTimeError.h"

namespace netrove {

class SmbPool;
struct SmbRequest;

enum class SmbAction { Look, Read };

/// The run-time failure that a request's status (an errno, not 0) stands for, by what was asked.
/// A server that can't be reached, for whatever reason, is a path that isn't there.
[[nodiscard]] ErrorNumber ErrorOfSmbStatus(int status, SmbAction action);

/// The same of a request that names a path. What isn't there may be the file or its folder: the
/// server says the same for both, and is asked again. Blocks, and calls WhileWaiting().
[[nodiscard]] ErrorNumber ErrorOfSmbRequest(SmbPool& pool, const SmbRequest& request, int status,
                                            SmbAction action);

} // namespace netrove
