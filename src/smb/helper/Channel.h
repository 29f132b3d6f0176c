#pragma once

#include "smb/Frames.h"
#include "smb/SmbMessages.h"

#include <chrono>
#include <optional>

namespace netrove {

/// The helper's end of the socket to the program.
class Channel {
public:
    /// Whether the program has handed down a socket.
    [[nodiscard]] static bool IsThere();

    enum class Event { Question, Quiet, End };

    /// Waits for the next message at most `limit`. Event::End where the program has closed the
    /// socket or sent what is no message.
    [[nodiscard]] Event Receive(SmbQuestion& question, std::chrono::milliseconds limit);

    /// False where the program has gone.
    [[nodiscard]] bool Send(const SmbAnswer& answer);

private:
    [[nodiscard]] bool ReadSome();

    Frames frames_;
};

} // namespace netrove
