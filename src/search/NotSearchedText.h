#pragma once

#include "platform/NetworkReport.h"

#include <QString>

namespace netrove {

/// How much of the network a search hasn't seen, as "3 computers, 1 share not searched" or "No
/// computer found"; empty if there is nothing to report.
[[nodiscard]] QString NotSearchedText(const NetworkReport& report);

} // namespace netrove
