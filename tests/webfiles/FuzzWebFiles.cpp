#include "online/webfiles/DonationLinks.h"
#include "online/webfiles/Version.h"
#include "online/webfiles/WebFile.h"
#include "platform/Http.h"
#include "runtime/RunTimeError.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void Check(bool holds) {
    if (!holds)
        std::abort();
}

template <typename Read>
void IgnoreFailure(Read read) {
    try {
        read();
    } catch (const netrove::RunTimeError&) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const QString text = QString::fromUtf8(QByteArrayView(bytes, qsizetype(size)));
    IgnoreFailure([&] {
        const auto version = netrove::Version::FromText(netrove::WebFile::Payload(text));
        Check(netrove::Version::FromText(version.Text()) == version);
    });
    // The marker is given, so that what is behind it is reached.
    IgnoreFailure([&] {
        const auto links =
            netrove::ReadDonationLinks(netrove::WebFile::DonationMarker + u' ' + text);
        Check(!links.captions.isEmpty() && links.captions.size() <= 3);
        for (const QString& address : links.addresses)
            Check(netrove::IsWebAddress(address));
    });
    return 0;
}
