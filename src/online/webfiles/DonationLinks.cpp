#include "online/webfiles/DonationLinks.h"

#include "online/webfiles/WebFile.h"
#include "runtime/RunTimeError.h"
#include "runtime/Text.h"

namespace netrove {
namespace {

/// The marker and five pairs. Anything after them stays in the last token.
constexpr qsizetype MaxTokens = 11;

QStringList Tokens(QStringView text) {
    QStringList tokens;
    while (tokens.size() + 1 < MaxTokens) {
        const qsizetype end = text.indexOf(u' ');
        if (end < 0)
            break;
        tokens.append(text.first(end).toString());
        text = text.sliced(end + 1);
    }
    tokens.append(text.toString());
    return tokens;
}

} // namespace

DonationLinks ReadDonationLinks(const QString& answer) {
    const QStringList tokens = Tokens(answer);
    if (UpperCase(Trim(tokens[0])) != WebFile::DonationMarker)
        throw RunTimeError(ErrorNumber::BadFileMode);
    if (tokens.size() < 3)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    DonationLinks links;
    for (qsizetype at = 1; at < tokens.size(); ++at) {
        QStringList& list = at % 2 == 1 ? links.captions : links.addresses;
        if (list.size() < DonationLinks::Count)
            list.append(at % 2 == 1 ? tokens[at] : WebFile::Link(tokens[at]));
    }
    return links;
}

} // namespace netrove
