#pragma once

#include "redirector/SmbLimits.h"

#include <QByteArray>
#include <QString>

#include <stop_token>
#include <vector>

#include <poll.h>

namespace netrove {

/// Finds out whether a server speaks SMB at a port: connects to it and asks which dialects it
/// knows, with short time limits. libsmbclient itself would wait 5 s for the port, which can't be
/// shortened, and then as long for the first answer as for any other.
class SmbProbe {
public:
    explicit SmbProbe(const SmbLimits& limits) : limits_(limits) {}
    SmbProbe(const SmbProbe&) = delete;
    SmbProbe& operator=(const SmbProbe&) = delete;
    ~SmbProbe();

    /// Tries a computer's addresses (numeric ones). Returns 0 if a server speaks SMB at one of
    /// them, else the errno of the last that failed: ECANCELED where the wait was given up. Calls
    /// WhileWaiting().
    [[nodiscard]] int Run(const std::vector<QString>& addresses, quint16 port,
                          const std::stop_token& stop = {});

private:
    void Open(const QString& address, quint16 port);
    [[nodiscard]] int AwaitConnection(const std::stop_token& stop);
    [[nodiscard]] int AwaitAnswer(int socket, const std::stop_token& stop) const;

    SmbLimits limits_;
    std::vector<pollfd> sockets_;
    int status_ = 0;
};

} // namespace netrove
