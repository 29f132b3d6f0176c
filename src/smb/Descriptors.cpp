#include "smb/Descriptors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <sys/socket.h>
#include <unistd.h>

namespace netrove {
namespace {

constexpr std::size_t MostDescriptors = 8;

struct Control {
    alignas(cmsghdr) std::array<char, CMSG_SPACE(MostDescriptors * sizeof(int))> bytes{};
};

msghdr Header(iovec& content, Control& control) {
    msghdr header = {};
    header.msg_iov = &content;
    header.msg_iovlen = 1;
    header.msg_control = control.bytes.data();
    header.msg_controllen = control.bytes.size();
    return header;
}

std::vector<int> DescriptorsOf(msghdr& header) {
    const cmsghdr* part = CMSG_FIRSTHDR(&header);
    if (!part || part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS)
        return {};
    std::vector<int> descriptors((part->cmsg_len - CMSG_LEN(0)) / sizeof(int));
    std::memcpy(descriptors.data(), CMSG_DATA(part), descriptors.size() * sizeof(int));
    return descriptors;
}

} // namespace

bool SendDescriptors(int socket, std::span<const std::byte> message,
                     std::span<const int> descriptors) {
    std::vector<std::byte> bytes(message.begin(), message.end()); // sendmsg takes no const pointer
    iovec content = {.iov_base = bytes.data(), .iov_len = bytes.size()};
    Control control;
    msghdr header = Header(content, control);
    const std::size_t count = std::min(descriptors.size(), MostDescriptors);
    header.msg_controllen = CMSG_SPACE(count * sizeof(int));
    cmsghdr* part = CMSG_FIRSTHDR(&header);
    part->cmsg_level = SOL_SOCKET;
    part->cmsg_type = SCM_RIGHTS;
    part->cmsg_len = CMSG_LEN(count * sizeof(int));
    std::memcpy(CMSG_DATA(part), descriptors.data(), count * sizeof(int));
    ssize_t sent = 0;
    do {
        sent = sendmsg(socket, &header, MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    return sent == static_cast<ssize_t>(bytes.size());
}

std::vector<int> ReceiveDescriptors(int socket, std::span<std::byte> message, std::size_t count) {
    iovec content = {.iov_base = message.data(), .iov_len = message.size()};
    Control control;
    msghdr header = Header(content, control);
    ssize_t received = 0;
    do {
        received = recvmsg(socket, &header, MSG_CMSG_CLOEXEC);
    } while (received < 0 && errno == EINTR);
    if (received < 0)
        return {};
    std::vector<int> descriptors = DescriptorsOf(header);
    if (received == static_cast<ssize_t>(message.size()) && descriptors.size() == count)
        return descriptors;
    for (const int one : descriptors)
        close(one);
    return {};
}

} // namespace netrove
