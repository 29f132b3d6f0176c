#include "runtime/Names.h"

#include <algorithm>

namespace netrove {

bool IsLocalPathElement(QStringView text) {
    return !text.isEmpty() && text != QLatin1String(".") && text != QLatin1String("..") &&
           !text.contains(u'/') && !text.contains(QChar::Null);
}

bool IsPathElement(QStringView text) {
    return IsLocalPathElement(text) && !text.contains(u'\\');
}

bool IsNodeName(QStringView text) {
    return IsPathElement(text) && !text.contains(u'|');
}

QString NameKey(const QString& name) {
    QString key = name;
    for (QChar& character : key)
        character = character.toCaseFolded();
    return key;
}

bool IsSameName(QStringView left, QStringView right) {
    return std::ranges::equal(left, right, [](QChar one, QChar other) {
        return one.toCaseFolded() == other.toCaseFolded();
    });
}

} // namespace netrove
