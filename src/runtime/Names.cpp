#include "runtime/Names.h"

#include "runtime/SourceText.h"

#include <algorithm>

namespace netrove {
namespace {

/// Folds the character's upper case: what the user types is made upper case before it is looked up.
QChar Folded(QChar character) {
    return character.toUpper().toCaseFolded();
}

} // namespace

bool IsLocalPathElement(QStringView text) {
    return !text.isEmpty() && text != "."_L1 && text != ".."_L1 && !text.contains(u'/') &&
           !text.contains(QChar::Null);
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
        character = Folded(character);
    return key;
}

bool IsSameName(QStringView left, QStringView right) {
    return std::ranges::equal(left, right,
                              [](QChar one, QChar other) { return Folded(one) == Folded(other); });
}

} // namespace netrove
