#pragma once

#include "options/OptionControls.h"
#include "platform/Dialogs.h"

namespace netrove {

/// Checks what the user has entered before any of it is taken, in a fixed order. A failed check
/// brings its tab to the front, says in a message box what is wrong, and puts the focus on the
/// control.
class OptionChecks {
public:
    OptionChecks(OptionControls& controls, Dialogs& dialogs)
        : controls_(controls), dialogs_(dialogs) {}

    /// Whether all checks pass. Stops at the first one that fails.
    [[nodiscard]] bool Pass();

private:
    struct Check;

    [[nodiscard]] static const std::vector<Check>& All();
    [[nodiscard]] bool Pass(const Check& check);

    OptionControls& controls_;
    Dialogs& dialogs_;
};

} // namespace netrove
