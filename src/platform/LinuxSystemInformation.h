#pragma once

#include "platform/SystemInformation.h"

namespace netrove {

/// The system as os-release, the kernel and the user database describe it.
class LinuxSystemInformation : public SystemInformation {
public:
    /// The distribution's full name, as in "Debian GNU/Linux 12 (bookworm)".
    [[nodiscard]] QString OSName() const override;
    /// The kernel's release, as in "6.1.0-18-amd64".
    [[nodiscard]] QString OSVersion() const override;
    /// The name that the user logs on with; empty for a user without one.
    [[nodiscard]] QString UserName() const override;
    [[nodiscard]] QString ComputerName() const override;
};

} // namespace netrove
