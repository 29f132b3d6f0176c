#include "search/AdminShares.h"

namespace netrove {

QStringList AdminShareNames() {
    QStringList names(QStringLiteral("Admin$"));
    for (char16_t letter = u'C'; letter <= u'Z'; ++letter)
        names += QChar(letter) + QStringLiteral("$");
    return names;
}

} // namespace netrove
