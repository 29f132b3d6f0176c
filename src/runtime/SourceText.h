#pragma once

#include <QString>

namespace netrove {

/// A text that stands in the source.
[[nodiscard]] inline QString Text(const char* text) {
    return QString::fromUtf8(text);
}

} // namespace netrove
