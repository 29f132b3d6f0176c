#include "discovery/DiscoveryRound.h"

#include "discovery/DnsSdInquiry.h"
#include "discovery/NetBiosInquiry.h"
#include "discovery/WsDiscoveryInquiry.h"

#include <algorithm>

namespace netrove {

using Clock = Inquiry::Clock;

DiscoveryRound::DiscoveryRound(const TakeAnswer& take) {
    inquiries_.push_back(std::make_unique<WsDiscoveryInquiry>(take));
    inquiries_.push_back(std::make_unique<NetBiosInquiry>(take));
    inquiries_.push_back(std::make_unique<DnsSdInquiry>(take));
}

void DiscoveryRound::Run(std::chrono::milliseconds window, int stop) {
    const Clock::time_point end = Clock::now() + window;
    const std::vector<LocalLink> links = LocalLinks();
    std::erase_if(inquiries_, [&links](const auto& inquiry) { return !inquiry->Begin(links); });
    std::vector<pollfd> descriptors;
    while (!inquiries_.empty() && Clock::now() < end) {
        Clock::time_point next = end;
        descriptors = {{.fd = stop, .events = POLLIN, .revents = 0}};
        for (const auto& inquiry : inquiries_) {
            inquiry->Turn(Clock::now());
            inquiry->Await(descriptors);
            next = std::min(next, inquiry->NextTurn());
        }
        const auto wait = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now());
        const int limit = static_cast<int>(std::max<qint64>(wait.count(), 0));
        poll(descriptors.data(), descriptors.size(), limit);
        if (descriptors.front().revents != 0)
            return;
    }
}

} // namespace netrove
