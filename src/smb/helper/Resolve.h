#pragma once

#include "smb/SmbMessages.h"

#include <QString>

namespace netrove {

/// Whether a host is written as an address, "192.0.2.1" or "2001:db8::1".
[[nodiscard]] bool IsNumericHost(const QString& host);

/// The addresses of a computer, in the order in which they should be tried. Returns 0 or an errno.
[[nodiscard]] int Resolve(const QString& host, SmbAddresses& addresses);

} // namespace netrove
