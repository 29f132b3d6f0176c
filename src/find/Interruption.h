#pragma once

namespace netrove {

/// Makes Ctrl+C (SIGINT) and SIGTERM stop the search in good order. A second signal ends the
/// program at once, as usual. To be made once, at the program's start.
class Interruption {
public:
    Interruption();

    /// The number of the signal that came, 0 if none has.
    [[nodiscard]] static int Signal();
};

} // namespace netrove
