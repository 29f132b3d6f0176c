#include "discovery/DnsSdInquiry.h"

#include "discovery/DnsSdText.h"
#include "discovery/InquiryLimits.h"

#include <dbus/dbus.h>

namespace netrove {
namespace {

constexpr char Daemon[] = "org.freedesktop.Avahi";
constexpr char Server[] = "org.freedesktop.Avahi.Server";
constexpr char ServiceBrowser[] = "org.freedesktop.Avahi.ServiceBrowser";
constexpr char Smb[] = "_smb._tcp";
constexpr char DeviceInfo[] = "_device-info._tcp";
constexpr qint32 Any = -1; ///< interface or protocol

/// The system bus allows a connection 128 unanswered questions.
constexpr std::size_t MaxResolving = 64;

/// How often to try again while the bus hasn't taken all that is to be sent. Waiting until it can
/// be written to wouldn't do: during the bus's greeting that would return at once, again and again.
constexpr std::chrono::milliseconds SendStep{5};

QByteArray BusAddress() {
    const QByteArray address = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    return address.isEmpty() ? QByteArray("unix:path=/run/dbus/system_bus_socket") : address;
}

/// A message that doesn't start the daemon if it isn't running.
DBusMessage* Call(const char* service, const char* path, const char* interface,
                  const char* method) {
    DBusMessage* const message = dbus_message_new_method_call(service, path, interface, method);
    if (message != nullptr)
        dbus_message_set_auto_start(message, FALSE);
    return message;
}

QByteArrayList Texts(DBusMessageIter array) {
    QByteArrayList texts;
    if (dbus_message_iter_get_arg_type(&array) != DBUS_TYPE_ARRAY)
        return texts;
    DBusMessageIter text = {};
    for (dbus_message_iter_recurse(&array, &text);
         dbus_message_iter_get_arg_type(&text) == DBUS_TYPE_ARRAY; dbus_message_iter_next(&text)) {
        DBusMessageIter bytes = {};
        dbus_message_iter_recurse(&text, &bytes);
        if (dbus_message_iter_get_arg_type(&bytes) != DBUS_TYPE_BYTE)
            continue;
        const char* data = nullptr;
        int size = 0;
        dbus_message_iter_get_fixed_array(&bytes, static_cast<void*>(&data), &size);
        texts += QByteArray(data, size);
    }
    return texts;
}

} // namespace

void DnsSdInquiry::CloseConnection::operator()(DBusConnection* connection) const {
    dbus_connection_close(connection);
    dbus_connection_unref(connection);
}

void DnsSdInquiry::ReleaseMessage::operator()(DBusMessage* message) const {
    dbus_message_unref(message);
}

DnsSdInquiry::DnsSdInquiry(TakeAnswer take) : take_(std::move(take)) {}

DnsSdInquiry::~DnsSdInquiry() = default;

bool DnsSdInquiry::Begin(std::span<const LocalLink> links) {
    if (links.empty())
        return false;
    connection_.reset(dbus_connection_open_private(BusAddress().constData(), nullptr));
    if (connection_ == nullptr)
        return false;
    // What dbus_bus_register() does, but without waiting for the answer.
    static_cast<void>(
        Send(Message(Call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, "Hello"))));
    // Avahi sends its signals to this connection alone, so no match rule is needed.
    Browse(Smb);
    Browse(DeviceInfo);
    return true;
}

quint32 DnsSdInquiry::Send(Message message) {
    dbus_uint32_t number = 0;
    if (message != nullptr)
        dbus_connection_send(connection_.get(), message.get(), &number);
    return number;
}

void DnsSdInquiry::Browse(const char* type) {
    Message message(Call(Daemon, "/", Server, "ServiceBrowserNew"));
    const char* const domain = "local";
    const quint32 flags = 0;
    if (message != nullptr &&
        dbus_message_append_args(message.get(), DBUS_TYPE_INT32, &Any, DBUS_TYPE_INT32, &Any,
                                 DBUS_TYPE_STRING, &type, DBUS_TYPE_STRING, &domain,
                                 DBUS_TYPE_UINT32, &flags, DBUS_TYPE_INVALID) != 0)
        static_cast<void>(Send(std::move(message)));
}

void DnsSdInquiry::Resolve(const Service& service) {
    Message message(Call(Daemon, "/", Server, "ResolveService"));
    const char* const name = service.name.constData();
    const char* const type = service.type.constData();
    const char* const domain = service.domain.constData();
    const quint32 flags = 0;
    if (message != nullptr &&
        dbus_message_append_args(
            message.get(), DBUS_TYPE_INT32, &service.interface, DBUS_TYPE_INT32, &service.protocol,
            DBUS_TYPE_STRING, &name, DBUS_TYPE_STRING, &type, DBUS_TYPE_STRING, &domain,
            DBUS_TYPE_INT32, &service.protocol, DBUS_TYPE_UINT32, &flags, DBUS_TYPE_INVALID) != 0)
        resolving_.insert(Send(std::move(message)));
}

void DnsSdInquiry::Await(std::vector<pollfd>& descriptors) const {
    int descriptor = -1;
    if (connection_ != nullptr && dbus_connection_get_is_connected(connection_.get()) != 0 &&
        dbus_connection_get_unix_fd(connection_.get(), &descriptor) != 0)
        descriptors.push_back({.fd = descriptor, .events = POLLIN, .revents = 0});
}

Inquiry::Clock::time_point DnsSdInquiry::NextTurn() const {
    const bool mustSend = connection_ != nullptr &&
                          dbus_connection_get_is_connected(connection_.get()) != 0 &&
                          dbus_connection_has_messages_to_send(connection_.get()) != 0;
    return mustSend ? Clock::now() + SendStep : Clock::time_point::max();
}

void DnsSdInquiry::Turn(Clock::time_point /*now*/) {
    if (connection_ == nullptr || dbus_connection_get_is_connected(connection_.get()) == 0)
        return;
    dbus_connection_read_write(connection_.get(), 0);
    for (Message message(dbus_connection_pop_message(connection_.get())); message != nullptr;
         message.reset(dbus_connection_pop_message(connection_.get())))
        Take(message.get());
    for (; !waiting_.empty() && resolving_.size() < MaxResolving; waiting_.pop_front())
        Resolve(waiting_.front());
    dbus_connection_read_write(connection_.get(), 0);
}

void DnsSdInquiry::Take(DBusMessage* message) {
    if (dbus_message_is_signal(message, ServiceBrowser, "ItemNew") != 0)
        TakeService(message);
    if (dbus_message_get_type(message) != DBUS_MESSAGE_TYPE_METHOD_RETURN &&
        dbus_message_get_type(message) != DBUS_MESSAGE_TYPE_ERROR)
        return;
    if (resolving_.erase(dbus_message_get_reply_serial(message)) > 0 &&
        dbus_message_get_type(message) == DBUS_MESSAGE_TYPE_METHOD_RETURN)
        TakeResolved(message);
}

void DnsSdInquiry::TakeService(DBusMessage* message) {
    Service service;
    const char* name = nullptr;
    const char* type = nullptr;
    const char* domain = nullptr;
    if (seen_ >= InquiryLimits::Answers ||
        dbus_message_get_args(message, nullptr, DBUS_TYPE_INT32, &service.interface,
                              DBUS_TYPE_INT32, &service.protocol, DBUS_TYPE_STRING, &name,
                              DBUS_TYPE_STRING, &type, DBUS_TYPE_STRING, &domain,
                              DBUS_TYPE_INVALID) == 0)
        return;
    service.name = name;
    service.type = type;
    service.domain = domain;
    if (service.type != Smb && service.type != DeviceInfo)
        return;
    ++seen_;
    waiting_.push_back(std::move(service));
}

void DnsSdInquiry::TakeResolved(DBusMessage* message) {
    qint32 interface = 0;
    qint32 protocol = 0;
    qint32 addressProtocol = 0;
    quint16 port = 0;
    const char* name = nullptr;
    const char* type = nullptr;
    const char* domain = nullptr;
    const char* host = nullptr;
    const char* address = nullptr;
    if (dbus_message_get_args(message, nullptr, DBUS_TYPE_INT32, &interface, DBUS_TYPE_INT32,
                              &protocol, DBUS_TYPE_STRING, &name, DBUS_TYPE_STRING, &type,
                              DBUS_TYPE_STRING, &domain, DBUS_TYPE_STRING, &host, DBUS_TYPE_INT32,
                              &addressProtocol, DBUS_TYPE_STRING, &address, DBUS_TYPE_UINT16, &port,
                              DBUS_TYPE_INVALID) == 0)
        return;
    DBusMessageIter field = {};
    dbus_message_iter_init(message, &field);
    for (int skipped = 0; skipped < 9; ++skipped)
        dbus_message_iter_next(&field);
    const bool sharesFiles = QByteArrayView(type) == QByteArrayView(Smb);
    const auto numeric =
        SocketAddress::Parse(QString::fromLatin1(address), 0, static_cast<unsigned>(interface));
    const QString computer =
        DnsSdText::ComputerName(QString::fromUtf8(name), QString::fromUtf8(host));
    if (numeric && !computer.isEmpty())
        take_({.foundBy = FoundBy::DnsSd,
               .name = computer,
               .address = numeric->Host(),
               .port = sharesFiles ? port : quint16{0},
               .sharesFiles = sharesFiles,
               .model = DnsSdText::Model(Texts(field))});
}

} // namespace netrove
