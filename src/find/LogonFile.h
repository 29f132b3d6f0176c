#pragma once

#include "redirector/StoredLogon.h"

#include <QString>

namespace netrove {

/// Reads the user and the password for all computers from a file that nobody but its owner may be
/// able to read. Its lines are those that smbclient takes, too: "username = U", "password = P" and,
/// if the user has one, "domain = D". Raises WrongUse.
[[nodiscard]] StoredLogon ReadLogonFile(const QString& path);

} // namespace netrove
