#pragma once

#include "options/OptionControls.h"
#include "platform/Dialogs.h"

namespace netrove {

/// What the user has entered is checked before any of it is taken: one check after the other, in a
/// fixed order. One that fails brings its tab to the front, says in a box what is wrong, and puts
/// the focus on the control.
class OptionChecks {
public:
    OptionChecks(OptionControls& controls, Dialogs& dialogs)
        : controls_(controls), dialogs_(dialogs) {}

    /// Whether all checks are passed; none is made after one that fails.
    [[nodiscard]] bool Pass();

private:
    struct Check;

    [[nodiscard]] static const std::vector<Check>& All();
    [[nodiscard]] bool Pass(const Check& check);

    OptionControls& controls_;
    Dialogs& dialogs_;
};

} // namespace netrove
