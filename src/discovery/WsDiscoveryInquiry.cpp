#include "discovery/WsDiscoveryInquiry.h"

#include "discovery/InquiryLimits.h"

#include <QRandomGenerator>

#include <algorithm>

namespace netrove {
namespace {

/// How often a probe is sent. SOAP-over-UDP asks for repeats: the first after 50 to 250 ms, each
/// later one after twice as long.
constexpr int Probes = 4;

/// From this probe on they have a new message ID. Hosts ignore an ID that they have answered, so
/// this makes them send an answer again that may have been lost.
constexpr int SecondWave = 3;

Repeats::Time FirstGap() {
    return Repeats::Time(QRandomGenerator::global()->bounded(50, 251));
}

} // namespace

WsDiscoveryInquiry::WsDiscoveryInquiry(TakeAnswer take)
    : take_(std::move(take)), probes_(Probes, FirstGap(), 2) {}

bool WsDiscoveryInquiry::Begin(std::span<const LocalLink> links) {
    for (const LocalLink& link : links) {
        for (const bool isIPv4 : {true, false}) {
            auto socket = DatagramSocket::ForMulticast(link, isIPv4);
            const auto group =
                SocketAddress::Parse(isIPv4 ? WsMessages::GroupIPv4 : WsMessages::GroupIPv6,
                                     WsMessages::Port, link.index);
            if (!socket || !group)
                continue;
            // A host may hear the probe several ways, and ignores a message ID that it has heard:
            // each way has a probe of its own, so that all addresses become known.
            const QString probeId = WsMessages::NewId();
            ways_.push_back({.link = link,
                             .socket = std::move(*socket),
                             .group = *group,
                             .probeId = probeId,
                             .questions = {probeId},
                             .unresolved = {},
                             .seenDevices = {}});
        }
    }
    return !ways_.empty();
}

void WsDiscoveryInquiry::Await(std::vector<pollfd>& descriptors) const {
    for (const Way& way : ways_)
        descriptors.push_back({.fd = way.socket.Descriptor(), .events = POLLIN, .revents = 0});
    for (const MetadataRequest& request : requests_)
        descriptors.push_back(request.Await());
}

Inquiry::Clock::time_point WsDiscoveryInquiry::NextTurn() const {
    return probes_.Next();
}

void WsDiscoveryInquiry::Turn(Clock::time_point now) {
    const bool isDue = probes_.IsDue(now);
    if (isDue)
        ++sent_;
    for (Way& way : ways_) {
        if (isDue)
            Ask(way);
        Receive(way);
    }
    GoOnWithRequests();
}

void WsDiscoveryInquiry::Ask(Way& way) const {
    if (sent_ == SecondWave) {
        way.probeId = WsMessages::NewId();
        way.questions.insert(way.probeId);
    }
    way.socket.Send(WsMessages::Probe(way.probeId), way.group);
    for (const QString& endpoint : std::as_const(way.unresolved))
        Resolve(way, endpoint);
}

void WsDiscoveryInquiry::Resolve(Way& way, const QString& endpoint) {
    const QString id = WsMessages::NewId();
    way.questions.insert(id);
    way.socket.Send(WsMessages::Resolve(id, endpoint), way.group);
}

void WsDiscoveryInquiry::Receive(Way& way) {
    for (int count = 0; count < InquiryLimits::DatagramsATurn; ++count) {
        const auto datagram = way.socket.Receive();
        if (!datagram)
            return;
        if (way.link.Reaches(datagram->from))
            TakeMessage(way, *datagram);
    }
}

void WsDiscoveryInquiry::TakeMessage(Way& way, const Datagram& datagram) {
    const auto message = WsMessages::Parse(datagram.bytes);
    if (!message || !way.questions.contains(message->relatesTo) ||
        seenMessages_.contains(message->id) || seenMessages_.size() >= InquiryLimits::Answers)
        return;
    seenMessages_.insert(message->id);
    for (const WsMessages::Device& device : message->devices) {
        if (device.MayBeComputer())
            TakeDevice(way, device, datagram.from);
    }
}

void WsDiscoveryInquiry::TakeDevice(Way& way, const WsMessages::Device& device,
                                    const SocketAddress& from) {
    if (device.addresses.isEmpty()) {
        if (!IsNew(way, device.endpoint, from))
            return;
        way.unresolved.insert(device.endpoint);
        Resolve(way, device.endpoint);
        return;
    }
    way.unresolved.remove(device.endpoint);
    const auto target = WsMessages::ChooseTarget(device.addresses, from.Host());
    if (target && IsNew(way, device.endpoint + u'\n' + from.Host(), from))
        waiting_.push_back({.address = from.WithPort(target->port),
                            .path = target->path,
                            .endpoint = device.endpoint});
}

bool WsDiscoveryInquiry::IsNew(Way& way, const QString& device, const SocketAddress& from) {
    int& asked = asked_[from.Host()];
    if (way.seenDevices.contains(device) || way.seenDevices.size() >= InquiryLimits::Answers ||
        asked >= InquiryLimits::QuestionsAnAddress)
        return false;
    way.seenDevices.insert(device);
    ++asked;
    return true;
}

void WsDiscoveryInquiry::GoOnWithRequests() {
    for (; !waiting_.empty() && requests_.size() < InquiryLimits::Requests; waiting_.pop_front()) {
        const Waiting& next = waiting_.front();
        requests_.emplace_back(next.address, next.path, next.endpoint);
    }
    requests_.remove_if([this](MetadataRequest& request) {
        if (!request.Turn())
            return false;
        if (const auto& computer = request.Computer())
            take_({.foundBy = FoundBy::WsDiscovery,
                   .name = computer->name,
                   .address = request.Address().Host(),
                   .workgroup = computer->workgroup});
        return true;
    });
}

} // namespace netrove
