#pragma once

#include <chrono>
#include <cstddef>

namespace netrove {

/// How long each step of a connection may take, and how many there are. The limits are by phase:
/// a dead computer must cost little, while one that is there may need long for its first answer.
struct SmbLimits {
    using Time = std::chrono::milliseconds;

    Time start{5000};     ///< a helper until its hello, on a busy machine
    Time lookup{5000};    ///< the address of a name
    Time connect{1500};   ///< the TCP port
    Time negotiate{3000}; ///< the first answer of whoever has accepted
    /// Any other request, from one sign of life to the next. Disks that sleep need 10 to 15 s; the
    /// library itself gives up after 20 s.
    Time request{25000};
    /// Without any sign of life for so long, a server is asked over a new connection whether it is
    /// still there. A request waits on where it is, and is given up at once where it isn't.
    Time silence{3000};
    Time workgroup{3000}; ///< the workgroup of a computer
    /// A folder: the library reads all of it before the first entry comes.
    Time listing{60000};

    Time deadFor{5000}; ///< outside of searches, a computer that failed isn't tried for so long
    Time idle{30000};   ///< a helper without work is ended after so long
    /// The work of opening a connection, on both machines: a process on each.
    Time opening{20};
    Time firstOpening{80};         ///< the same of the first one, on a busy machine
    Time refusedFor{60000};        ///< a connection too many isn't tried again for so long
    std::size_t maxPerServer = 16; ///< connections; client editions of Windows take 20
    /// Connections to a server that are kept after a search, for what is asked next; the others
    /// leave room for copies.
    std::size_t keptPerServer = 4;
    /// Helpers in all, of some 4 MB each. A call that can't wait may start one more.
    std::size_t maxHelpers = 24;
};

} // namespace netrove
