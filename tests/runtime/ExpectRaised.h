#pragma once

#include "runtime/RunTimeError.h"

#include <gtest/gtest.h>

namespace netrove {

/// Expects that `operation` raises the run-time failure `expected`.
template <typename Operation>
void ExpectRaised(ErrorNumber expected, Operation operation, const QString& of = {}) {
    try {
        operation();
        ADD_FAILURE() << "nothing raised: " << of.toStdString();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), static_cast<int>(expected)) << of.toStdString();
    }
}

} // namespace netrove
