#include "fakes/Fuzz.h"
#include "runtime/Pattern.h"
#include "runtime/RunTimeError.h"

namespace netrove {
namespace {

bool InList(QStringView list, QChar character) {
    if (list.isEmpty())
        return false;
    const bool isRange = list.size() > 2 && list[1] == u'-';
    return (list[0].toCaseFolded() <= character &&
            character <= list[isRange ? 2 : 0].toCaseFolded()) ||
           InList(list.sliced(isRange ? 3 : 1), character);
}

bool OneMatches(QStringView one, QChar character) {
    if (one.size() > 1) {
        const QStringView list = one.sliced(1, one.size() - 2);
        const bool isNegated = list.size() > 1 && list[0] == u'!';
        return InList(list.sliced(isNegated ? 1 : 0), character) != isNegated;
    }
    return one == u"?" || (one == u"#" ? character >= u'0' && character <= u'9'
                                       : one[0].toCaseFolded() == character);
}

/// What a matcher does with a valid pattern that reads it anew for each character and tries every
/// way.
bool Matches(QStringView pattern, QStringView name) {
    if (pattern.isEmpty())
        return name.isEmpty();
    if (pattern[0] == u'*')
        return Matches(pattern.sliced(1), name) ||
               (!name.isEmpty() && Matches(pattern, name.sliced(1)));
    if (pattern.startsWith(u"[]"))
        return Matches(pattern.sliced(2), name);
    const qsizetype used = pattern[0] == u'[' ? pattern.indexOf(u']') + 1 : 1;
    return !name.isEmpty() && OneMatches(pattern.first(used), name[0].toCaseFolded()) &&
           Matches(pattern.sliced(used), name.sliced(1));
}

/// The bytes as text: most become the characters that mean something in a pattern.
QString TextOf(const QByteArray& bytes) {
    constexpr QStringView signs = u"*?#[]!-abAB09.";
    QString text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += code < 0xE0 ? signs[code % signs.size()] : QChar(char16_t{code});
    }
    return text;
}

} // namespace

void Fuzz(const QByteArray& bytes) {
    if (bytes.isEmpty())
        return;
    const qsizetype split = static_cast<unsigned char>(bytes[0]) * (bytes.size() - 1) / 255;
    const QString text = TextOf(bytes.sliced(1, split));
    const QString name = TextOf(bytes.sliced(1 + split));
    const Pattern pattern(text);
    try {
        const bool matches = pattern.Matches(name);
        // Stars make the plain matcher exponential: longer ones take it seconds.
        Require(text.size() > 8 || name.size() > 8 || matches == Matches(text, name));
    } catch (const RunTimeError&) {
        Require(text.contains(u'['));
    }
}

} // namespace netrove
