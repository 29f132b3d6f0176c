#include "search/AdminShares.h"

#include "runtime/SourceText.h"

namespace netrove {

QStringList AdminShareNames() {
    QStringList names(u"Admin$"_s);
    for (char16_t letter = u'C'; letter <= u'Z'; ++letter)
        names += QChar(letter) + u"$"_s;
    return names;
}

} // namespace netrove
