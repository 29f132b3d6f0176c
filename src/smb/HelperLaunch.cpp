#include "smb/HelperLaunch.h"

#include "smb/Descriptors.h"
#include "smb/SmbMessages.h"

#include <csignal>
#include <cstring>

#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace netrove {
namespace {

/// Tells the program which process this is. The program needs a pidfd to end a process that isn't
/// its child: by then another process may have the number.
bool Introduce() {
    const pid_t process = getpid();
    LaunchAnswer answer{};
    std::memcpy(answer.data(), &process, sizeof process);
    const int handle = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    const bool isSent =
        handle >= 0 && SendDescriptors(SmbHelperDescriptor, answer, std::array{handle});
    if (handle >= 0)
        close(handle);
    return isSent;
}

/// Makes a new child process a helper.
bool BecomeHelper(pid_t launcher, int socket, int memory) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != launcher)
        return false;
    std::signal(SIGCHLD, SIG_DFL);
    dup2(socket, SmbHelperDescriptor);
    dup2(memory, SmbMemoryDescriptor);
    close(socket);
    close(memory);
    return Introduce();
}

} // namespace

bool LaunchHelpers() {
    const pid_t launcher = getpid();
    std::signal(SIGCHLD, SIG_IGN); // nobody waits for the children
    // Occupies this number, so that received descriptors get other numbers than their final ones.
    dup2(SmbHelperDescriptor, SmbMemoryDescriptor);
    for (;;) {
        LaunchRequest request{};
        const std::vector<int> received = ReceiveDescriptors(SmbHelperDescriptor, request, 2);
        if (received.empty())
            return false;
        if (fork() == 0) {
            if (BecomeHelper(launcher, received[0], received[1]))
                return true;
            _exit(1);
        }
        for (const int one : received)
            close(one);
    }
}

} // namespace netrove
