#pragma once

#include "runtime/RunTimeError.h"

namespace netrove {

enum class SmbAction { Look, Read };

/// The run-time failure that a request's status (an errno, not 0) stands for, by what was asked.
/// A server that can't be reached, for whatever reason, is a path that isn't there.
[[nodiscard]] ErrorNumber ErrorOfSmbStatus(int status, SmbAction action);

} // namespace netrove
