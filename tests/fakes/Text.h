#pragma once

#include "runtime/SourceText.h" // the tests' texts are made as the program's are

#include <QStringList>

namespace netrove {

/// A table of two columns.
using TextPairs = std::initializer_list<std::pair<const char*, const char*>>;

inline QStringList Texts(std::initializer_list<const char*> texts) {
    QStringList list;
    for (const char* text : texts)
        list.append(Text(text));
    return list;
}

} // namespace netrove
