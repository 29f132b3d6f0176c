#pragma once

#include <QString>

namespace netrove {

inline QString Text(const char* text) {
    return QString::fromUtf8(text);
}

} // namespace netrove
