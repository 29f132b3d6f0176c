#pragma once

#include "platform/NetworkReport.h"

#include <QString>

namespace netrove {

/// What to tell somebody whose search has found no computer: whom it asked, and what helps.
/// `networkFile` is "network.ini" with its path.
[[nodiscard]] QString NobodyText(const NetworkReport& report, const QString& networkFile);

} // namespace netrove
