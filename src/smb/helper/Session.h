#pragma once

#include "smb/helper/Channel.h"
#include "smb/helper/SmbClient.h"

namespace netrove {

/// Answers the program's requests, one after the other, until the program goes, sends garbage or
/// asks nothing for a long time.
class Session {
public:
    explicit Session(SmbClient& client) : client_(client) {}

    void Run();

private:
    [[nodiscard]] bool Greet();
    [[nodiscard]] bool Answer(const SmbRequest& request);

    SmbClient& client_;
    Channel channel_;
};

} // namespace netrove
