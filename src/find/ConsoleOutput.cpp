#include "find/ConsoleOutput.h"

#include <cerrno>

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace netrove {
namespace {

/// Bytes to buffer: enough that a busy search makes few system calls.
constexpr qsizetype MostUnwritten = 64 * 1024;

/// Needed because another program may have made a shared terminal or pipe non-blocking.
void WaitUntilWritable(int descriptor) {
    pollfd wait{.fd = descriptor, .events = POLLOUT, .revents = 0};
    (void)poll(&wait, 1, -1);
}

} // namespace

ConsoleOutput::ConsoleOutput(int descriptor)
    : descriptor_(descriptor), isTerminal_(isatty(descriptor) != 0) {}

int ConsoleOutput::Columns() const {
    winsize size{};
    return ioctl(descriptor_, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

void ConsoleOutput::Write(const QByteArray& text) {
    if (error_ != 0)
        return;
    buffer_ += text;
    if (buffer_.size() >= MostUnwritten)
        Flush();
}

void ConsoleOutput::Flush() {
    qsizetype written = 0;
    while (written < buffer_.size() && error_ == 0) {
        const auto count = ::write(descriptor_, buffer_.constData() + written,
                                   static_cast<std::size_t>(buffer_.size() - written));
        if (count >= 0)
            written += count;
        else if (errno == EAGAIN)
            WaitUntilWritable(descriptor_);
        else if (errno != EINTR)
            error_ = errno;
    }
    buffer_.clear();
}

} // namespace netrove
