#include "online/webfiles/WebSite.h"

#include "platform/Http.h"

namespace netrove {

WebSite WebSite::Read(const ProfileFile& file, const WebSite& builtIn) {
    const QString section = QStringLiteral("Web");
    WebSite site{.address = file.ReadIni(section, QStringLiteral("Address"), builtIn.address),
                 .contact = file.ReadIni(section, QStringLiteral("Contact"), builtIn.contact)};
    if (!IsWebAddress(site.address))
        site.address = builtIn.address;
    return site;
}

} // namespace netrove
