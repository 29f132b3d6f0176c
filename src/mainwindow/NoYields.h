#pragma once

#include "runtime/Yield.h"

#include <functional>
#include <utility>

namespace netrove {

/// Makes yields do nothing while it lives, so that no handler runs: a window that was closed in the
/// middle of its start would save settings that it has only half read.
class NoYields {
public:
    NoYields() : pass_(SetYieldPass({})) {}
    NoYields(const NoYields&) = delete;
    NoYields& operator=(const NoYields&) = delete;
    ~NoYields() { SetYieldPass(std::move(pass_)); }

private:
    std::function<void()> pass_;
};

} // namespace netrove
