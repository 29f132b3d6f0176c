#pragma once

#include "redirector/Logons.h"
#include "redirector/SmbLimits.h"

#include <QString>

#include <memory>

namespace netrove {

/// How SMB is spoken.
struct SmbSettings {
    QString helper; ///< the program that speaks it
    SmbLimits limits = {};
    std::shared_ptr<Logons> logons = nullptr; ///< null: requests are a guest's
};

} // namespace netrove
