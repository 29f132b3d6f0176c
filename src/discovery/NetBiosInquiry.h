#pragma once

#include "discovery/Answer.h"
#include "discovery/DatagramSocket.h"
#include "discovery/Inquiry.h"
#include "discovery/NetBiosPackets.h"
#include "discovery/Repeats.h"

#include <QHash>

namespace netrove {

/// Finds computers by the NetBIOS name service: broadcasts a question for any name on every IPv4
/// network, then asks each computer that answers for all its names. Doesn't ask for browse lists:
/// they come over SMB1 alone.
class NetBiosInquiry : public Inquiry {
public:
    explicit NetBiosInquiry(TakeAnswer take);

    [[nodiscard]] bool Begin(std::span<const LocalLink> links) override;
    void Await(std::vector<pollfd>& descriptors) const override;
    [[nodiscard]] Clock::time_point NextTurn() const override;
    void Turn(Clock::time_point now) override;

private:
    struct Way {
        LocalLink link;
        DatagramSocket socket;
        SocketAddress broadcast;
        QHash<QString, SocketAddress> unanswered; ///< computers asked for their names, by address
    };

    void Receive(Way& way);
    void TakeReply(Way& way, const NetBiosPackets::Reply& reply, const SocketAddress& from);

    TakeAnswer take_;
    quint16 queryId_;
    quint16 statusId_;
    Repeats queries_;
    std::vector<Way> ways_;
    QSet<QString> seen_; ///< addresses
};

} // namespace netrove
