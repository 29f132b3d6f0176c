#pragma once

#include <QString>

#include <mutex>

#include <sys/types.h>

namespace netrove {

/// The process that starts the helpers: it has the SMB library loaded, so that one more helper
/// costs a millisecond instead of twenty. It speaks to no server itself. May be used by several
/// threads at once.
class SmbLauncher {
public:
    /// `program` is the helper program's path. Nothing is started yet.
    explicit SmbLauncher(QString program) : program_(std::move(program)) {}
    SmbLauncher(const SmbLauncher&) = delete;
    SmbLauncher& operator=(const SmbLauncher&) = delete;
    ~SmbLauncher(); ///< ends the process, and all that it has started with it

    /// Starts the process if it isn't running, and doesn't wait for it. False if that fails.
    bool Prepare();

    /// Has a helper started with these descriptors, and doesn't wait for it. False if the process
    /// can't be told.
    [[nodiscard]] bool Launch(int socket, int memory);

private:
    [[nodiscard]] bool Start();
    void End();

    const QString program_;
    std::mutex mutex_;
    pid_t process_ = -1;
    int socket_ = -1;
};

} // namespace netrove
