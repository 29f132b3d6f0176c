#pragma once

#include "smb/SmbMessages.h"

#include <QByteArray>

namespace netrove {

/// The address that libsmbclient takes for what a request names: the server for a list of shares,
/// its pipe for its workgroup, else the share and what is below it.
///
/// Every byte but letters, digits and "-._~" is encoded: the library decodes "%41", and takes "?"
/// for the beginning of options. The port is always there: without it the library tries port 139
/// first, which takes many seconds where a firewall is in between.
[[nodiscard]] QByteArray SmbUrl(const SmbRequest& request);

} // namespace netrove
