#include "discovery/NetBiosInquiry.h"

#include "discovery/InquiryLimits.h"

#include <QRandomGenerator>

namespace netrove {
namespace {

/// As RFC 1002 (6.1) asks for broadcasts: three times, 250 ms apart.
constexpr int Queries = 3;
constexpr Repeats::Time Gap(250);

} // namespace

NetBiosInquiry::NetBiosInquiry(TakeAnswer take)
    : take_(std::move(take))
    , queryId_(static_cast<quint16>(QRandomGenerator::global()->bounded(0x10000)))
    , statusId_(static_cast<quint16>(queryId_ + 1))
    , queries_(Queries, Gap, 1) {}

bool NetBiosInquiry::Begin(std::span<const LocalLink> links) {
    for (const LocalLink& link : links) {
        for (const LocalLink::Address& address : link.addresses) {
            if (!address.broadcast)
                continue;
            auto socket = DatagramSocket::ForBroadcast(address.own);
            if (socket)
                ways_.push_back({.link = link,
                                 .socket = std::move(*socket),
                                 .broadcast = address.broadcast->WithPort(NetBiosPackets::Port),
                                 .unanswered = {}});
        }
    }
    return !ways_.empty();
}

void NetBiosInquiry::Await(std::vector<pollfd>& descriptors) const {
    for (const Way& way : ways_)
        descriptors.push_back({.fd = way.socket.Descriptor(), .events = POLLIN, .revents = 0});
}

Inquiry::Clock::time_point NetBiosInquiry::NextTurn() const {
    return queries_.Next();
}

void NetBiosInquiry::Turn(Clock::time_point now) {
    const bool isDue = queries_.IsDue(now);
    for (Way& way : ways_) {
        if (isDue) {
            way.socket.Send(NetBiosPackets::NameQuery(queryId_), way.broadcast);
            for (const SocketAddress& address : std::as_const(way.unanswered))
                way.socket.Send(NetBiosPackets::StatusRequest(statusId_), address);
        }
        Receive(way);
    }
}

void NetBiosInquiry::Receive(Way& way) {
    for (int count = 0; count < InquiryLimits::DatagramsATurn; ++count) {
        const auto datagram = way.socket.Receive();
        if (!datagram)
            return;
        const auto reply = NetBiosPackets::Parse(datagram->bytes);
        if (reply && datagram->from.Port() == NetBiosPackets::Port &&
            way.link.Reaches(datagram->from))
            TakeReply(way, *reply, datagram->from);
    }
}

void NetBiosInquiry::TakeReply(Way& way, const NetBiosPackets::Reply& reply,
                               const SocketAddress& from) {
    const QString host = from.Host();
    if (!reply.isStatus && reply.id == queryId_ && !seen_.contains(host) &&
        seen_.size() < InquiryLimits::Answers) {
        seen_.insert(host);
        way.unanswered.insert(host, from);
        way.socket.Send(NetBiosPackets::StatusRequest(statusId_), from);
    }
    if (reply.isStatus && reply.id == statusId_ && way.unanswered.remove(host) > 0 &&
        !reply.computer.isEmpty()) {
        take_(
            {.foundBy = FoundBy::NetBios,
             .name = reply.computer,
             .address = host,
             .workgroup = reply.workgroup.isEmpty() ? std::nullopt : std::optional(reply.workgroup),
             .isMasterBrowser = reply.isMasterBrowser});
    }
}

} // namespace netrove
