#pragma once

#include "platform/SystemInformation.h"

#include <QString>

namespace netrove {

/// What the program knows of its system from its start on.
struct SystemValues {
    QString OSName; ///< in capitals
    QString OSVersion;
    QString CurrentUser;
    bool IsWinNT = false;
    bool IsWinXP = false;
};

[[nodiscard]] SystemValues ReadSystemValues(const SystemInformation& system);

} // namespace netrove
