#include "fakes/Fuzz.h"
#include "online/webfiles/DonationLinks.h"
#include "online/webfiles/Version.h"
#include "online/webfiles/WebFile.h"
#include "platform/Http.h"
#include "runtime/RunTimeError.h"

void netrove::Fuzz(const QByteArray& bytes) {
    const QString text = QString::fromUtf8(bytes);
    try {
        const auto version = Version::FromText(WebFile::Payload(text));
        Require(Version::FromText(version.Text()) == version);
    } catch (const RunTimeError&) {
    }
    try {
        // The marker is given, so that what is behind it is reached.
        const auto links = ReadDonationLinks(WebFile::DonationMarker + u' ' + text);
        Require(!links.captions.isEmpty() && links.captions.size() <= 3);
        for (const QString& address : links.addresses)
            Require(IsWebAddress(address));
    } catch (const RunTimeError&) {
    }
}
