#include "online/webfiles/WebFile.h"

#include "platform/Http.h"
#include "runtime/RunTimeError.h"
#include "runtime/Text.h"

namespace netrove::WebFile {
namespace {

constexpr qsizetype MarkerLength = 7;

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

QString Link(const QString& text) {
    QString address = text.trimmed();
    if (!IsWebAddress(address))
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    return address;
}

} // namespace netrove::WebFile
