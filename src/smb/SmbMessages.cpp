#include "smb/SmbMessages.h"

#include "runtime/Names.h"
#include "smb/SmbMemory.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace netrove {
namespace {

constexpr auto StreamVersion = QDataStream::Qt_6_4;

/// Reads an enumerator, whose values go from 0 to `last`; a greater one makes the stream corrupt.
template <typename Enum>
void ReadEnum(QDataStream& stream, Enum& value, Enum last) {
    quint8 number = 0;
    stream >> number;
    if (number > static_cast<quint8>(last))
        stream.setStatus(QDataStream::ReadCorruptData);
    else
        value = static_cast<Enum>(number);
}

QDataStream& operator<<(QDataStream& stream, const SmbHello& hello) {
    return stream << hello.version;
}

QDataStream& operator>>(QDataStream& stream, SmbHello& hello) {
    return stream >> hello.version;
}

/// Writes and reads directly where passwords lie: buffers that a stream made in between wouldn't be
/// wiped.
QDataStream& operator<<(QDataStream& stream, const Secret& secret) {
    const QByteArrayView bytes = secret.Bytes();
    return stream.writeBytes(bytes.data(), static_cast<uint>(bytes.size()));
}

QDataStream& operator>>(QDataStream& stream, Secret& secret) {
    quint32 length = 0;
    stream >> length;
    if (length > NameLimits::LogonBytes) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return stream;
    }
    std::array<char, NameLimits::LogonBytes> bytes{};
    const auto count = static_cast<int>(length);
    if (stream.readRawData(bytes.data(), count) == count)
        secret = Secret(QByteArrayView(bytes.data(), count));
    else
        stream.setStatus(QDataStream::ReadPastEnd);
    explicit_bzero(bytes.data(), bytes.size());
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const std::optional<SmbLogon>& logon) {
    stream << logon.has_value();
    return logon ? stream << logon->domain << logon->user << logon->password : stream;
}

/// The library takes texts that end at the first zero character, so there must be none inside.
bool IsLogonText(const QString& text) {
    return text.size() <= NameLimits::LogonBytes && !text.contains(QChar(u'\0'));
}

QDataStream& operator>>(QDataStream& stream, std::optional<SmbLogon>& logon) {
    bool isThere = false;
    stream >> isThere;
    if (!isThere)
        return stream;
    logon.emplace();
    stream >> logon->domain >> logon->user >> logon->password;
    if (logon->user.isEmpty() || !IsLogonText(logon->user) || !IsLogonText(logon->domain) ||
        logon->password.Bytes().contains('\0'))
        stream.setStatus(QDataStream::ReadCorruptData);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const SmbRequest& request) {
    return stream << static_cast<quint8>(request.kind) << request.host << request.port
                  << request.share << request.path << request.offset << request.length
                  << request.computer << request.logon;
}

bool IsValid(const SmbRequest& request) {
    using Kind = SmbRequest::Kind;
    if (!IsPathElement(request.host) || request.offset < 0 ||
        (!request.computer.isEmpty() && !IsPathElement(request.computer)) ||
        (request.kind == Kind::Fetch && request.length > SmbMemory::Bytes))
        return false;
    if (request.kind == Kind::Resolve || request.kind == Kind::ListShares ||
        request.kind == Kind::Workgroup)
        return true;
    if (!IsPathElement(request.share))
        return false;
    if (request.path.isEmpty())
        return true;
    const QStringList elements = request.path.split(u'/');
    return std::all_of(elements.begin(), elements.end(), IsPathElement);
}

QDataStream& operator>>(QDataStream& stream, SmbRequest& request) {
    ReadEnum(stream, request.kind, SmbRequest::Kind::Fetch);
    stream >> request.host >> request.port >> request.share >> request.path >> request.offset >>
        request.length >> request.computer >> request.logon;
    if (!IsValid(request))
        stream.setStatus(QDataStream::ReadCorruptData);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const SmbShare& share) {
    return stream << static_cast<quint8>(share.kind) << share.name << share.comment;
}

QDataStream& operator>>(QDataStream& stream, SmbShare& share) {
    ReadEnum(stream, share.kind, SmbShare::Kind::Printer);
    return stream >> share.name >> share.comment;
}

QDataStream& operator<<(QDataStream& stream, const SmbEntry& entry) {
    return stream << entry.name << entry.attributes << entry.length << entry.modified;
}

QDataStream& operator>>(QDataStream& stream, SmbEntry& entry) {
    stream >> entry.name >> entry.attributes >> entry.length >> entry.modified;
    if (entry.length < 0)
        stream.setStatus(QDataStream::ReadCorruptData);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const SmbFolder& folder) {
    return stream << folder.number << folder.changed;
}

QDataStream& operator>>(QDataStream& stream, SmbFolder& folder) {
    return stream >> folder.number >> folder.changed;
}

QDataStream& operator<<(QDataStream& stream, const SmbAddress& address) {
    return stream << address.text;
}

QDataStream& operator>>(QDataStream& stream, SmbAddress& address) {
    return stream >> address.text;
}

/// Lists go on to the end of their message: so there is no count that could promise more than there
/// is.
template <typename Item>
QDataStream& operator<<(QDataStream& stream, const std::vector<Item>& items) {
    for (const Item& item : items)
        stream << item;
    return stream;
}

template <typename Item>
QDataStream& operator>>(QDataStream& stream, std::vector<Item>& items) {
    while (!stream.atEnd() && stream.status() == QDataStream::Ok) {
        Item item;
        stream >> item;
        items.push_back(std::move(item));
    }
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const SmbData& data) {
    return stream << data.bytes;
}

QDataStream& operator>>(QDataStream& stream, SmbData& data) {
    return stream >> data.bytes;
}

QDataStream& operator<<(QDataStream& stream, const SmbFetched& fetched) {
    return stream << fetched.begin << fetched.length;
}

QDataStream& operator>>(QDataStream& stream, SmbFetched& fetched) {
    stream >> fetched.begin >> fetched.length;
    if (fetched.begin > SmbMemory::Bytes || fetched.length > SmbMemory::Bytes - fetched.begin)
        stream.setStatus(QDataStream::ReadCorruptData);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const SmbWorkgroup& workgroup) {
    return stream << workgroup.name;
}

QDataStream& operator>>(QDataStream& stream, SmbWorkgroup& workgroup) {
    return stream >> workgroup.name;
}

QDataStream& operator<<(QDataStream& stream, const SmbEnd& end) {
    return stream << end.status;
}

QDataStream& operator>>(QDataStream& stream, SmbEnd& end) {
    return stream >> end.status;
}

/// At least as many bytes as a question takes: a buffer that had to grow would leave a password
/// behind.
qsizetype QuestionBytes(const SmbQuestion& question) {
    constexpr qsizetype fixed = 128;
    const auto* request = std::get_if<SmbRequest>(&question);
    if (!request || !request->logon)
        return fixed;
    const SmbLogon& logon = *request->logon;
    const qsizetype characters = request->host.size() + request->share.size() +
                                 request->path.size() + request->computer.size() +
                                 logon.domain.size() + logon.user.size();
    return fixed + 2 * characters + logon.password.Bytes().size();
}

/// A message is its number in the variant, then its fields.
template <typename Message>
QByteArray EncodeMessage(const Message& message) {
    QByteArray payload;
    if constexpr (std::is_same_v<Message, SmbQuestion>)
        payload.reserve(QuestionBytes(message));
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream.setVersion(StreamVersion);
    stream << static_cast<quint8>(message.index());
    std::visit([&](const auto& fields) { stream << fields; }, message);
    return payload;
}

template <typename Message, std::size_t... Numbers>
bool Emplace(Message& message, std::size_t number, std::index_sequence<Numbers...>) {
    return ((number == Numbers && (message.template emplace<Numbers>(), true)) || ...);
}

template <typename Message>
std::optional<Message> DecodeMessage(const QByteArray& payload) {
    QDataStream stream(payload);
    stream.setVersion(StreamVersion);
    quint8 number = 0;
    stream >> number;
    Message message;
    if (!Emplace(message, number, std::make_index_sequence<std::variant_size_v<Message>>()))
        return std::nullopt;
    std::visit([&](auto& fields) { stream >> fields; }, message);
    if (stream.status() != QDataStream::Ok || !stream.atEnd())
        return std::nullopt;
    return message;
}

} // namespace

QByteArray EncodeQuestion(const SmbQuestion& question) {
    return EncodeMessage(question);
}

QByteArray EncodeAnswer(const SmbAnswer& answer) {
    return EncodeMessage(answer);
}

std::optional<SmbQuestion> DecodeQuestion(const QByteArray& payload) {
    return DecodeMessage<SmbQuestion>(payload);
}

std::optional<SmbAnswer> DecodeAnswer(const QByteArray& payload) {
    return DecodeMessage<SmbAnswer>(payload);
}

} // namespace netrove
