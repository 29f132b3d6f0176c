#include "discovery/NetBiosPackets.h"

#include "discovery/ComputerName.h"
#include "platform/TextEncoding.h"
#include "runtime/Names.h"

#include <QtEndian>

namespace netrove::NetBiosPackets {
namespace {

constexpr quint16 TypeName = 0x20;
constexpr quint16 TypeStatus = 0x21;
constexpr quint16 ClassInternet = 1;
constexpr quint16 FlagsBroadcast = 0x0110; ///< recursion desired, broadcast
constexpr quint16 FlagResponse = 0x8000;
constexpr quint16 MaskOperation = 0x7800;
constexpr quint16 MaskResult = 0x000F;

/// The suffix of a name tells what it is for; names of a group have a flag.
constexpr quint8 SuffixWorkstation = 0x00;
constexpr quint8 SuffixBrowser = 0x01;
constexpr quint8 SuffixFileServer = 0x20;
constexpr quint16 FlagGroup = 0x8000;
constexpr QByteArrayView MasterBrowserName("\x01\x02__MSBROWSE__\x02");

/// Reads a packet from front to back; past its end every read gives 0 or nothing.
class Reader {
public:
    explicit Reader(QByteArrayView bytes) : bytes_(bytes) {}

    [[nodiscard]] bool IsGood() const { return good_; }

    QByteArrayView Take(qsizetype count) {
        if (!good_ || count > bytes_.size()) {
            good_ = false;
            return {};
        }
        const QByteArrayView taken = bytes_.first(count);
        bytes_ = bytes_.sliced(count);
        return taken;
    }
    quint8 Byte() {
        const QByteArrayView taken = Take(1);
        return good_ ? static_cast<quint8>(taken[0]) : quint8{0};
    }
    quint16 Word() {
        const QByteArrayView taken = Take(2);
        return good_ ? qFromBigEndian<quint16>(taken.data()) : quint16{0};
    }

    /// A name as labels or as a pointer to an earlier one.
    void SkipName() {
        constexpr quint8 pointer = 0xC0;
        for (quint8 length = Byte(); length != 0; length = Byte()) {
            if ((length & pointer) != 0) {
                Byte();
                return;
            }
            Take(length);
        }
    }

private:
    QByteArrayView bytes_;
    bool good_ = true;
};

QByteArray Question(quint16 id, quint16 flags, quint16 type) {
    QByteArray packet;
    for (const quint16 word : {id, flags, quint16{1}, quint16{0}, quint16{0}, quint16{0}}) {
        const quint16 swapped = qToBigEndian(word);
        packet.append(reinterpret_cast<const char*>(&swapped), sizeof swapped);
    }
    // "*" and 15 zero bytes; each letter stands for half a byte.
    packet += ' ' + QByteArray("CK") + QByteArray(30, 'A') + '\0';
    for (const quint16 word : {type, ClassInternet}) {
        const quint16 swapped = qToBigEndian(word);
        packet.append(reinterpret_cast<const char*>(&swapped), sizeof swapped);
    }
    return packet;
}

/// The text of a name, without the blanks that pad it; empty if it can't be shown.
QString NameText(QByteArrayView padded) {
    QByteArrayView name = padded;
    while (!name.isEmpty() && (name.back() == ' ' || name.back() == '\0'))
        name.chop(1);
    const QString text = FromUtf8OrWindows1252(name);
    return IsComputerName(text) ? text : QString();
}

void ReadNames(Reader& reader, Reply& reply) {
    for (int left = reader.Byte(); left > 0; --left) {
        const QByteArrayView name = reader.Take(NameLimits::NetBiosBytes);
        const quint8 suffix = reader.Byte();
        const bool isGroup = (reader.Word() & FlagGroup) != 0;
        if (!reader.IsGood())
            return;
        if (suffix == SuffixFileServer && !isGroup && reply.computer.isEmpty())
            reply.computer = NameText(name);
        if (suffix == SuffixWorkstation && isGroup && reply.workgroup.isEmpty())
            reply.workgroup = NameText(name);
        if (suffix == SuffixBrowser && isGroup && name == MasterBrowserName)
            reply.isMasterBrowser = true;
    }
}

} // namespace

QByteArray NameQuery(quint16 id) {
    return Question(id, FlagsBroadcast, TypeName);
}

QByteArray StatusRequest(quint16 id) {
    return Question(id, 0, TypeStatus);
}

std::optional<Reply> Parse(QByteArrayView bytes) {
    Reader reader(bytes);
    Reply reply;
    reply.id = reader.Word();
    const quint16 flags = reader.Word();
    const quint16 questions = reader.Word();
    const quint16 answers = reader.Word();
    reader.Take(4); // how many records follow the answers
    if ((flags & FlagResponse) == 0 || (flags & (MaskOperation | MaskResult)) != 0 ||
        questions != 0 || answers == 0)
        return std::nullopt;
    reader.SkipName();
    const quint16 type = reader.Word();
    const quint16 internet = reader.Word();
    reader.Take(4); // how long the answer holds
    Reader data(reader.Take(reader.Word()));
    if (!reader.IsGood() || internet != ClassInternet || (type != TypeName && type != TypeStatus))
        return std::nullopt;
    reply.isStatus = type == TypeStatus;
    if (reply.isStatus)
        ReadNames(data, reply);
    return data.IsGood() ? std::optional(reply) : std::nullopt;
}

} // namespace netrove::NetBiosPackets
