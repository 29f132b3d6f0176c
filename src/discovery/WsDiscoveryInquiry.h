#pragma once

#include "discovery/Answer.h"
#include "discovery/DatagramSocket.h"
#include "discovery/Inquiry.h"
#include "discovery/MetadataRequest.h"
#include "discovery/Repeats.h"
#include "discovery/WsMessages.h"

#include <QHash>
#include <QSet>

#include <deque>
#include <list>

namespace netrove {

/// Finds computers by WS-Discovery: a probe to all over IPv4 and IPv6 of every link, then a
/// question for its metadata to each device that answers, at the address that it answered from.
class WsDiscoveryInquiry : public Inquiry {
public:
    explicit WsDiscoveryInquiry(TakeAnswer take);

    [[nodiscard]] bool Begin(std::span<const LocalLink> links) override;
    void Await(std::vector<pollfd>& descriptors) const override;
    [[nodiscard]] Clock::time_point NextTurn() const override;
    void Turn(Clock::time_point now) override;

private:
    /// One family of addresses on one link.
    struct Way {
        LocalLink link;
        DatagramSocket socket;
        SocketAddress group;
        QString probeId;
        QSet<QString> questions;   ///< names of those that an answer may relate to
        QSet<QString> unresolved;  ///< endpoints whose addresses were asked for
        QSet<QString> seenDevices; ///< endpoint, or endpoint and address
    };
    struct Waiting {
        SocketAddress address;
        QByteArray path;
        QString endpoint;
    };

    void Ask(Way& way) const;
    static void Resolve(Way& way, const QString& endpoint);
    void Receive(Way& way);
    void TakeMessage(Way& way, const Datagram& datagram);
    void TakeDevice(Way& way, const WsMessages::Device& device, const SocketAddress& from);
    [[nodiscard]] bool IsNew(Way& way, const QString& device, const SocketAddress& from);
    void GoOnWithRequests();

    TakeAnswer take_;
    std::vector<Way> ways_;
    Repeats probes_;
    int sent_ = 0; ///< probes
    QSet<QString> seenMessages_;
    QHash<QString, int> asked_; ///< questions that an address has caused
    std::deque<Waiting> waiting_;
    std::list<MetadataRequest> requests_;
};

} // namespace netrove
