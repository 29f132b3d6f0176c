#pragma once

#include "smb/SmbMessages.h"

#include <QString>

namespace netrove {

/// Whether the user might have a Kerberos ticket. True for a ticket cache that isn't a file, as
/// only Kerberos itself could look into it.
[[nodiscard]] bool MayHaveTicket();

/// The name by which Kerberos knows the computer of a request: its host if that is a name and no
/// address, else the computer's name if that leads to the same address. Empty where there is none:
/// an address alone tells Kerberos nothing. May take as long as looking up a name.
[[nodiscard]] QString KerberosHost(const SmbRequest& request);

} // namespace netrove
