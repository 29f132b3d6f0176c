#include "online/webfiles/WebFile.h"

#include "platform/Http.h"
#include "runtime/RunTimeError.h"
#include "runtime/Text.h"

#include <algorithm>

namespace netrove::WebFile {
namespace {

constexpr qsizetype MarkerLength = 7;
constexpr qsizetype MaxLineLength = 1000;
constexpr int MaxLines = 5000;
constexpr qsizetype MaxLink = 2000;

} // namespace

QString Address(const QString& site, QLatin1String path) {
    QString address = site;
    while (address.endsWith(u'/'))
        address.chop(1);
    return address + path;
}

bool HasMarker(const QString& answer, QLatin1String marker) {
    return UpperCase(answer.left(MarkerLength)) == marker;
}

QString Payload(const QString& answer) {
    return answer.mid(MarkerLength + 1);
}

QString Shown(const QString& payload) {
    QString shown;
    qsizetype at = 0;
    for (int line = 0; line < MaxLines && at < payload.size(); ++line) {
        const qsizetype end = payload.indexOf(u'\n', at);
        const qsizetype length = (end < 0 ? payload.size() : end) - at;
        shown += payload.mid(at, std::min(length, MaxLineLength));
        at += std::min(length, MaxLineLength);
        if (length > MaxLineLength)
            shown += u'\n';
        else if (end >= 0)
            shown += payload[at++];
    }
    return shown;
}

QString Link(const QString& text) {
    QString address = text.trimmed();
    if (address.size() > MaxLink || !IsWebAddress(address))
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    return address;
}

} // namespace netrove::WebFile
