#pragma once

#include "platform/ProfileFile.h"

#include <QString>

namespace netrove {

/// The program's web site.
struct WebSite {
    QString address;
    QString contact; ///< the mail address for letters about the program

    /// The site that the section "Web" of a settings file names; what it leaves out, or isn't an
    /// http or https address, is taken from `builtIn`.
    [[nodiscard]] static WebSite Read(const ProfileFile& file, const WebSite& builtIn);
};

} // namespace netrove
