#include "redirector/SmbLauncher.h"

#include "smb/Descriptors.h"
#include "smb/HelperLaunch.h"
#include "smb/SmbMessages.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace netrove {
namespace {

/// Starts a program that has nothing but an end of the socket and the program's standard error.
pid_t Spawn(const QByteArray& program, int descriptor) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, descriptor, SmbHelperDescriptor);
    QByteArray name = program;
    const std::array<char*, 2> arguments{name.data(), nullptr};
    pid_t process = -1;
    const int result =
        posix_spawn(&process, program.constData(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return result == 0 ? process : -1;
}

} // namespace

SmbLauncher::~SmbLauncher() {
    End();
}

bool SmbLauncher::Prepare() {
    const std::scoped_lock lock(mutex_);
    return process_ >= 0 || Start();
}

bool SmbLauncher::Launch(int socket, int memory) {
    const std::array descriptors{socket, memory};
    const std::scoped_lock lock(mutex_);
    if (process_ >= 0 && SendDescriptors(socket_, LaunchRequest(), descriptors))
        return true;
    // There is no process yet, or it has died.
    End();
    return Start() && SendDescriptors(socket_, LaunchRequest(), descriptors);
}

bool SmbLauncher::Start() {
    std::array<int, 2> ends{};
    // The process must notice the program's end, however that comes: so no other process may have
    // the program's end of the socket.
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return false;
    process_ = Spawn(QFile::encodeName(program_), ends[1]);
    close(ends[1]);
    socket_ = ends[0];
    if (process_ < 0)
        End();
    return process_ >= 0;
}

void SmbLauncher::End() {
    if (socket_ >= 0)
        close(socket_);
    socket_ = -1;
    if (process_ < 0)
        return;
    kill(process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
}

} // namespace netrove
