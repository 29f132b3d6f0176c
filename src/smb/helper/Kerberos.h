#pragma once

#include "smb/SmbMessages.h"

#include <QString>

namespace netrove {

/// Whether the user may have a Kerberos ticket. A cache that isn't a file can't be looked at
/// without Kerberos itself: then it may.
[[nodiscard]] bool MayHaveTicket();

/// The name by which Kerberos knows the computer of a request: that of its host where this is no
/// address, else that of the computer where this name leads to the same address. Empty where
/// there is none: an address alone tells Kerberos nothing. May take as long as looking up a name.
[[nodiscard]] QString KerberosHost(const SmbRequest& request);

} // namespace netrove
