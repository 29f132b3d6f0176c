#pragma once

#include <chrono>
#include <cstddef>

namespace netrove {

/// How long each step of a connection may take, and how many connections there are. The phases have
/// limits of their own: a dead computer must cost little, while one that is there may need long for
/// its first answer.
struct SmbLimits {
    using Time = std::chrono::milliseconds;

    Time start{5000};     ///< a helper's start until its hello, on a busy machine
    Time lookup{5000};    ///< the address of a name
    Time connect{1500};   ///< the TCP port
    Time negotiate{3000}; ///< the first answer of a server that has accepted the connection
    /// Any other request, from one sign of life to the next. Disks that sleep need 10 to 15 s; the
    /// library itself gives up after 20 s.
    Time request{25000};
    /// A server that has given no sign of life for so long is asked over a new connection whether
    /// it is still there. If it is, requests go on waiting; if not, they are given up at once.
    Time silence{3000};
    Time workgroup{3000}; ///< the workgroup of a computer
    /// A folder: the library reads all of it before the first entry comes.
    Time listing{60000};

    Time deadFor{5000}; ///< how long a computer that failed isn't tried again outside of searches
    Time idle{30000};   ///< how long a helper without work is kept
    /// The work of opening a connection: both machines start a process for it.
    Time opening{20};
    Time firstOpening{80};         ///< the same for the first one, on a busy machine
    Time refusedFor{60000};        ///< how long a refused number of connections isn't tried again
    std::size_t maxPerServer = 16; ///< connections; client editions of Windows take 20
    /// Connections to a server that are kept after a search, for what is asked next; the others
    /// leave room for copies.
    std::size_t keptPerServer = 4;
    /// Helpers in all, of some 4 MB each. A request that goes first may start one more.
    std::size_t maxHelpers = 24;
};

} // namespace netrove
