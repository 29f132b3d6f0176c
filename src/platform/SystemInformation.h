#pragma once

#include <QString>

namespace netrove {

/// What the program runs on.
class SystemInformation {
public:
    SystemInformation() = default;
    SystemInformation(const SystemInformation&) = delete;
    SystemInformation& operator=(const SystemInformation&) = delete;
    virtual ~SystemInformation() = default;

    [[nodiscard]] virtual QString OSName() const = 0;
    [[nodiscard]] virtual QString OSVersion() const = 0;
    [[nodiscard]] virtual QString UserName() const = 0;
    /// The computer's name without its domain, in its own case; empty if it has none.
    [[nodiscard]] virtual QString ComputerName() const = 0;
};

} // namespace netrove
