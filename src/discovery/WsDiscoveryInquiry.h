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

/// Finds computers by WS-Discovery: multicasts a probe over IPv4 and IPv6 on every link, then asks
/// each device that answers for its metadata, at the address that it answered from.
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
        QSet<QString> questions;   ///< message IDs of the questions sent
        QSet<QString> unresolved;  ///< endpoints whose addresses are asked for
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
    int sent_ = 0; ///< number of probes
    QSet<QString> seenMessages_;
    QHash<QString, int> asked_; ///< number of questions, by the address that caused them
    std::deque<Waiting> waiting_;
    std::list<MetadataRequest> requests_;
};

} // namespace netrove
