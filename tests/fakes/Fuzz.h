#pragma once

#include <QByteArray>

#include <cstdlib>

namespace netrove {

/// What a fuzzer does with an input; each defines its own.
void Fuzz(const QByteArray& bytes);

/// A finding where something doesn't hold.
inline void Require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace netrove
