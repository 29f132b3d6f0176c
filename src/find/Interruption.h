#pragma once

namespace netrove {

/// Lets Ctrl+C and a polite request to end stop the search in good order. The second one ends the
/// program at once, as without this. To be made once, at the program's start.
class Interruption {
public:
    Interruption();

    /// The number of the signal that came, 0 if none has.
    [[nodiscard]] static int Signal();
};

} // namespace netrove
