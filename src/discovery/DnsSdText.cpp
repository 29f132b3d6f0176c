#include "discovery/DnsSdText.h"

#include "discovery/ComputerName.h"
#include "platform/TextEncoding.h"
#include "runtime/Names.h"

#include <algorithm>

namespace netrove::DnsSdText {
namespace {

bool LooksLikeHost(const QString& text) {
    return !text.isEmpty() && text.size() <= NameLimits::HostLabel &&
           std::all_of(text.begin(), text.end(), [](QChar character) {
               return character.isLetterOrNumber() || character == u'-' || character == u'_';
           });
}

} // namespace

QString ComputerName(const QString& service, const QString& host) {
    if (LooksLikeHost(service))
        return service;
    const QString label = host.section(u'.', 0, 0);
    if (LooksLikeHost(label))
        return label;
    return IsComputerName(service) ? service : QString();
}

QString Model(const QList<QByteArray>& texts) {
    constexpr QByteArrayView key("model=");
    for (const QByteArray& text : texts) {
        if (!text.toLower().startsWith(key.toByteArray()))
            continue;
        const QString model = FromUtf8(text.sliced(key.size())).value_or(QString());
        return IsComputerName(model) ? model : QString();
    }
    return {};
}

} // namespace netrove::DnsSdText
