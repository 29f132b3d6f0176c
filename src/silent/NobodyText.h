#pragma once

#include "platform/NetworkReport.h"

#include <QString>

namespace netrove {

/// What to tell a user whose search has found no computer: what was asked, and what may help.
/// `networkFile` is "network.ini" with its path.
[[nodiscard]] QString NobodyText(const NetworkReport& report, const QString& networkFile);

} // namespace netrove
