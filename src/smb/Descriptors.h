#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace netrove {

/// Sends a message together with at most eight descriptors over a local socket. False if that
/// fails, also where the other side has gone.
[[nodiscard]] bool SendDescriptors(int socket, std::span<const std::byte> message,
                                   std::span<const int> descriptors);

/// Receives a message that is exactly as long as `message`, with `count` descriptors. The caller
/// owns the descriptors; programs that are started don't inherit them. Blocks. Empty where the
/// other side has gone or has sent anything else.
[[nodiscard]] std::vector<int> ReceiveDescriptors(int socket, std::span<std::byte> message,
                                                  std::size_t count);

} // namespace netrove
