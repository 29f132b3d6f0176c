#pragma once

#include "discovery/Answer.h"
#include "discovery/Inquiry.h"

#include <deque>
#include <memory>

struct DBusConnection;
struct DBusMessage;

namespace netrove {

/// Finds computers by DNS-SD: asks the Avahi daemon, over the system bus, for services of the types
/// _smb._tcp and _device-info._tcp. Without a bus or a daemon nothing is found. Uses libdbus
/// directly, since Avahi's own client library blocks for up to 25 seconds to wait for answers.
class DnsSdInquiry : public Inquiry {
public:
    explicit DnsSdInquiry(TakeAnswer take);
    ~DnsSdInquiry() override;

    [[nodiscard]] bool Begin(std::span<const LocalLink> links) override;
    void Await(std::vector<pollfd>& descriptors) const override;
    [[nodiscard]] Clock::time_point NextTurn() const override;
    void Turn(Clock::time_point now) override;

private:
    struct CloseConnection {
        void operator()(DBusConnection* connection) const;
    };
    struct ReleaseMessage {
        void operator()(DBusMessage* message) const;
    };
    using Message = std::unique_ptr<DBusMessage, ReleaseMessage>;

    /// A service that was announced on one interface, over either IPv4 or IPv6.
    struct Service {
        qint32 interface = 0;
        qint32 protocol = 0;
        QByteArray name;
        QByteArray type;
        QByteArray domain;
    };

    [[nodiscard]] quint32 Send(Message message);
    void Browse(const char* type);
    void Resolve(const Service& service);
    void Take(DBusMessage* message);
    void TakeService(DBusMessage* message);
    void TakeResolved(DBusMessage* message);

    TakeAnswer take_;
    std::unique_ptr<DBusConnection, CloseConnection> connection_;
    std::deque<Service> waiting_;
    std::set<quint32> resolving_; ///< serial numbers of the messages that wait for a reply
    qsizetype seen_ = 0;          ///< number of services seen
};

} // namespace netrove
