#pragma once

#include "platform/NetworkEnumeration.h"
#include "platform/SystemInformation.h"

#include <QString>

namespace netrove {

/// What the program runs on, and what follows from it.
struct OSInfo {
    QString Name;
    QString Version;
    /// Workgroups can be asked for, and names of computers can be typed.
    bool IsNT = true;
    /// A search starts at the provider of Windows networks instead of the root.
    bool IsXP = false;
};

[[nodiscard]] OSInfo GetOSInfo(const SystemInformation& system);

/// The name of the user who is logged on; empty if it has more than 24 characters.
[[nodiscard]] QString GetUserNameText(const SystemInformation& system);

/// The workgroup of a computer, which is named without "\\". Asks the network and takes as long
/// as the computer takes to answer; empty if nobody answers.
[[nodiscard]] QString GetWorkgroup(const QString& computer, NetworkEnumeration& network);

} // namespace netrove
