#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace netrove {

/// Sends a message together with descriptors over a local socket, eight at most. False if that
/// fails, also where the other side has gone.
[[nodiscard]] bool SendDescriptors(int socket, std::span<const std::byte> message,
                                   std::span<const int> descriptors);

/// Receives a message of just that length and so many descriptors, which the caller owns and no
/// program that is started inherits. Blocks. Empty where the other side has gone or has sent
/// anything else.
[[nodiscard]] std::vector<int> ReceiveDescriptors(int socket, std::span<std::byte> message,
                                                  std::size_t count);

} // namespace netrove
