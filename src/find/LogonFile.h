#pragma once

#include "redirector/StoredLogon.h"

#include <QString>

namespace netrove {

/// Reads the user and the password for all computers from a file, which nobody but its owner may
/// read. Its lines are those that smbclient takes too: "username = U", "password = P" and, where
/// the user has one, "domain = D". Raises WrongUse.
[[nodiscard]] StoredLogon ReadLogonFile(const QString& path);

} // namespace netrove
