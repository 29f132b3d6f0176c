#pragma once

#include <QStringList>

namespace netrove {

inline QString Text(const char* text) {
    return QString::fromUtf8(text);
}

/// A table of two columns.
using TextPairs = std::initializer_list<std::pair<const char*, const char*>>;

inline QStringList Texts(std::initializer_list<const char*> texts) {
    QStringList list;
    for (const char* text : texts)
        list.append(Text(text));
    return list;
}

} // namespace netrove
