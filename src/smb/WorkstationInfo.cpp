#include "smb/WorkstationInfo.h"

#include <QDataStream>
#include <QtEndian>

namespace netrove {
namespace {

// Places in a header ([C706] 12.6.3.1).
constexpr qsizetype TypeAt = 2;
constexpr qsizetype FlagsAt = 3;
constexpr qsizetype DataRepresentationAt = 4;
constexpr qsizetype LengthAt = 8;

constexpr char FirstAndLast = 3; // of the fragments of a message
constexpr char LittleEndian = 0x10;
enum MessageType : char { RequestType = 0, ResponseType = 2, BindType = 11, BindAckType = 12 };

/// Bytes of a fragment at most, as the first question says.
constexpr quint16 MaxFragment = 4280;
/// Bytes of a response before what it holds.
constexpr qsizetype ResponseHeaderBytes = 24;
/// The bytes of an accepted BindAck before the other side's address for more connections.
constexpr qsizetype BindAckBytes = 26;

constexpr quint32 Level = 100;

/// A message with its header; the call's number is 1 for both, as each answer is awaited.
QByteArray Message(MessageType type, const QByteArray& body) {
    QByteArray message = QByteArray::fromHex("05000000" // version 5.0
                                             "10000000" // little-endian, ASCII, IEEE
                                             "00000000" // length of it all, and of a proof
                                             "01000000");
    message[TypeAt] = type;
    message[FlagsAt] = FirstAndLast;
    const auto length = static_cast<quint16>(message.size() + body.size());
    qToLittleEndian(length, message.data() + LengthAt);
    return message + body;
}

bool IsAnswer(const QByteArray& message, MessageType type) {
    return WorkstationInfo::MessageBytes(message) == message.size() && message[TypeAt] == type &&
           message[FlagsAt] == FirstAndLast;
}

/// A text of 16-bit characters with its zero: room, offset, length, then `length` characters.
std::optional<QString> ReadText(QDataStream& stream) {
    quint32 room = 0;
    quint32 offset = 0;
    quint32 length = 0;
    stream >> room >> offset >> length;
    if (stream.status() != QDataStream::Ok || offset != 0 || length > MaxFragment)
        return std::nullopt;
    QString text;
    for (quint32 at = 0; at < length; ++at) {
        quint16 character = 0;
        stream >> character;
        text += QChar(character);
    }
    if (length % 2 != 0)
        stream.skipRawData(sizeof(quint16));
    return text.left(text.indexOf(QChar(u'\0')));
}

} // namespace

QByteArray WorkstationInfo::Bind() {
    return Message(BindType,
                   QByteArray::fromHex("b810b810"         // fragments of MaxFragment both ways
                                       "00000000"         // a new association
                                       "01000000"         // one context,
                                       "00000100"         // number 0, in one encoding:
                                       "98d0ff6b12a11036" // wkssvc ([MS-WKST] 1.9),
                                       "983346c3f87e345a"
                                       "01000000"         // version 1.0,
                                       "045d888aeb1cc911" // in NDR ([C706] 14)
                                       "9fe808002b104860"
                                       "02000000"));
}

QByteArray WorkstationInfo::Request() {
    return Message(RequestType, QByteArray::fromHex("08000000"    // bytes of what the call is given
                                                    "00000000"    // context 0, operation 0
                                                    "00000000"    // no name of the server
                                                    "64000000")); // level 100
}

std::optional<qsizetype> WorkstationInfo::MessageBytes(const QByteArray& header) {
    if (header.size() < HeaderBytes || !header.startsWith(QByteArrayLiteral("\5\0")) ||
        header[DataRepresentationAt] != LittleEndian)
        return std::nullopt;
    const auto length = qFromLittleEndian<quint16>(header.constData() + LengthAt);
    if (length <= HeaderBytes || length > MaxFragment)
        return std::nullopt;
    return length;
}

bool WorkstationInfo::IsBound(const QByteArray& message) {
    if (!IsAnswer(message, BindAckType) || message.size() < BindAckBytes)
        return false;
    const auto addressBytes =
        qFromLittleEndian<quint16>(message.constData() + BindAckBytes - sizeof(quint16));
    // Behind the address, at the next multiple of 4, the number of results, then the first.
    const qsizetype results = (BindAckBytes + addressBytes + 3) / 4 * 4;
    constexpr qsizetype firstResult = 4;
    return results + firstResult + 2 <= message.size() && message[results] == 1 &&
           qFromLittleEndian<quint16>(message.constData() + results + firstResult) == 0;
}

std::optional<QString> WorkstationInfo::Workgroup(const QByteArray& message) {
    if (!IsAnswer(message, ResponseType) || message.size() < ResponseHeaderBytes)
        return std::nullopt;
    QDataStream stream(message.mid(ResponseHeaderBytes));
    stream.setByteOrder(QDataStream::LittleEndian);
    quint32 level = 0;
    quint32 record = 0;
    quint32 platform = 0;
    quint32 computer = 0;
    quint32 workgroup = 0;
    quint32 major = 0;
    quint32 minor = 0;
    stream >> level >> record >> platform >> computer >> workgroup >> major >> minor;
    if (level != Level || record == 0 || workgroup == 0 || (computer != 0 && !ReadText(stream)))
        return std::nullopt;
    const std::optional<QString> text = ReadText(stream);
    quint32 result = 0;
    stream >> result;
    return stream.status() == QDataStream::Ok && result == 0 ? text : std::nullopt;
}

} // namespace netrove
