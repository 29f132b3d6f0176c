#pragma once

#include <array>
#include <cstddef>

#include <sys/types.h>

namespace netrove {

/// What the program sends to the launcher, with the helper's end of the socket and the memory, to
/// get one more helper.
using LaunchRequest = std::array<std::byte, 1>;

/// What a helper sends first of all, with a pidfd of itself: the number of its process.
using LaunchAnswer = std::array<std::byte, sizeof(pid_t)>;

/// Makes a helper process for each LaunchRequest that comes at SmbHelperDescriptor. Loading the SMB
/// library takes most of a helper's start: this process has done it, and its children have it at
/// once.
///
/// Returns true in each child, which has its own socket and memory at the known descriptors and
/// ends with this process. Returns false in this process once the program has gone, however it
/// ended. To be called before any thread is started.
[[nodiscard]] bool LaunchHelpers();

} // namespace netrove
