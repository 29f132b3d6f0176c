#pragma once

#include "smb/Frames.h"
#include "smb/SmbMessages.h"

#include <chrono>
#include <optional>

namespace netrove {

/// The helper's end of the socket to the program.
class Channel {
public:
    /// Whether the process was started with a socket to the program.
    [[nodiscard]] static bool IsThere();

    enum class Event { Question, Quiet, End };

    /// Waits at most `limit` for the next message. Event::End where the program has closed the
    /// socket or sent something that isn't a message.
    [[nodiscard]] Event Receive(SmbQuestion& question, std::chrono::milliseconds limit);

    /// False where the program has gone.
    [[nodiscard]] bool Send(const SmbAnswer& answer);

private:
    [[nodiscard]] bool ReadSome();

    Frames frames_;
};

} // namespace netrove
