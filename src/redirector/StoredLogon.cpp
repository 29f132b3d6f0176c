#include "redirector/StoredLogon.h"

#include "runtime/Names.h"
#include "smb/SmbMessages.h"

#include <algorithm>

namespace netrove {
namespace {

/// More logons than anybody stores: what the keyring gives beyond that isn't ours.
constexpr std::size_t MaxLogons = 1000;

/// Takes what stands before the separator, or all of the text if there is none.
QByteArrayView TakeField(QByteArrayView& text, char separator) {
    const qsizetype end = text.indexOf(separator);
    const QByteArrayView field = end < 0 ? text : text.first(end);
    text = end < 0 ? QByteArrayView() : text.sliced(end + 1);
    return field;
}

/// Decodes a password; all buffers are wiped.
Secret DecodedSecret(QByteArrayView encoded) {
    QByteArray bytes(encoded.size(), '\0');
    std::copy(encoded.begin(), encoded.end(), bytes.begin());
    QByteArray decoded = QByteArray::fromPercentEncoding(bytes);
    const Secret secret(decoded);
    Wipe(decoded);
    Wipe(bytes);
    return secret;
}

/// Writes into the buffer itself: Qt's own encoder would leave copies of passwords behind.
void AppendEncoded(QByteArray& text, QByteArrayView bytes) {
    constexpr char digits[] = "0123456789ABCDEF";
    for (const char byte : bytes) {
        if (QChar::isLetterOrNumber(static_cast<uchar>(byte)) && static_cast<uchar>(byte) < 0x80) {
            text += byte;
        } else {
            text += '%';
            text += digits[static_cast<uchar>(byte) >> 4];
            text += digits[byte & 0xf];
        }
    }
}

QString DecodedText(QByteArrayView encoded) {
    return QString::fromUtf8(QByteArray::fromPercentEncoding(encoded.toByteArray()));
}

} // namespace

SmbLogon LogonOf(const StoredLogon& stored) {
    SmbLogon logon{.user = stored.user, .password = stored.password};
    const qsizetype backslash = stored.user.indexOf(u'\\');
    const qsizetype at = stored.user.lastIndexOf(u'@');
    if (backslash >= 0) {
        logon.domain = stored.user.left(backslash);
        logon.user = stored.user.mid(backslash + 1);
    } else if (at > 0) {
        logon.domain = stored.user.mid(at + 1);
        logon.user = stored.user.left(at);
    }
    return logon;
}

bool NamesUser(const StoredLogon& stored) {
    return !LogonOf(stored).user.isEmpty();
}

Secret EncodeLogons(const std::vector<StoredLogon>& logons) {
    QByteArray text;
    qsizetype size = 0;
    for (const StoredLogon& logon : logons)
        size +=
            9 * (logon.computer.size() + logon.user.size()) + 3 * logon.password.Bytes().size() + 3;
    text.reserve(size); // a buffer that grew would leave passwords behind
    for (const StoredLogon& logon : logons) {
        AppendEncoded(text, logon.computer.toUtf8());
        text += ' ';
        AppendEncoded(text, logon.user.toUtf8());
        text += ' ';
        AppendEncoded(text, logon.password.Bytes());
        text += '\n';
    }
    const Secret secret(text);
    Wipe(text);
    return secret;
}

std::vector<StoredLogon> DecodeLogons(const Secret& text) {
    std::vector<StoredLogon> logons;
    QByteArrayView lines = text.Bytes();
    while (!lines.isEmpty() && logons.size() < MaxLogons) {
        QByteArrayView line = TakeField(lines, '\n');
        if (line.count(' ') != 2 || line.size() > 3 * NameLimits::LogonBytes)
            continue;
        StoredLogon logon{.computer = DecodedText(TakeField(line, ' ')),
                          .user = DecodedText(TakeField(line, ' ')),
                          .password = DecodedSecret(line),
                          .isInKeyring = true};
        const bool isName = logon.computer.isEmpty() || IsNodeName(logon.computer);
        const bool isTwice = std::any_of(logons.begin(), logons.end(), [&](const auto& one) {
            return IsSameName(one.computer, logon.computer);
        });
        if (isName && !isTwice && !LogonOf(logon).user.isEmpty())
            logons.push_back(std::move(logon));
    }
    return logons;
}

} // namespace netrove
