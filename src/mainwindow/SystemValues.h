#pragma once

#include "platform/SystemInformation.h"

#include <QString>

namespace netrove {

/// What the program learns about its system at its start.
struct SystemValues {
    QString OSName; ///< in capitals
    QString OSVersion;
    QString CurrentUser;
    bool IsWinNT = false;
    bool IsWinXP = false;
};

[[nodiscard]] SystemValues ReadSystemValues(const SystemInformation& system);

} // namespace netrove
