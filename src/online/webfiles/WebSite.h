#pragma once

#include "platform/ProfileFile.h"

#include <QString>

namespace netrove {

/// The program's web site.
struct WebSite {
    QString address;
    QString contact; ///< the mail address for letters about the program

    /// The site that the section "Web" of a settings file names. What the section leaves out, and
    /// an address that isn't http or https, is taken from `builtIn`.
    [[nodiscard]] static WebSite Read(const ProfileFile& file, const WebSite& builtIn);
};

} // namespace netrove
