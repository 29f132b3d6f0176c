#include "online/webfiles/WebSite.h"

#include "platform/Http.h"
#include "runtime/SourceText.h"

namespace netrove {

WebSite WebSite::Read(const ProfileFile& file, const WebSite& builtIn) {
    const QString section = u"Web"_s;
    WebSite site{.address = file.ReadIni(section, u"Address"_s, builtIn.address),
                 .contact = file.ReadIni(section, u"Contact"_s, builtIn.contact)};
    if (!IsWebAddress(site.address))
        site.address = builtIn.address;
    return site;
}

} // namespace netrove
