#include "runtime/Pattern.h"
#include "runtime/RunTimeError.h"

#include <cstdint>
#include <cstdlib>

namespace {

using netrove::Pattern;

/// What a matcher does with a valid pattern that reads it anew for each character and tries every
/// way.
class PlainMatcher {
public:
    static bool Matches(QStringView pattern, QStringView name) {
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

private:
    static bool OneMatches(QStringView one, QChar character) {
        if (one.size() > 1) {
            const QStringView list = one.sliced(1, one.size() - 2);
            return InList(Members(list), character) == (Members(list).size() == list.size());
        }
        if (one == u"?")
            return true;
        if (one == u"#")
            return character >= u'0' && character <= u'9';
        return one[0].toCaseFolded() == character;
    }

    /// A list without the "!" that negates it.
    static QStringView Members(QStringView list) {
        return list.size() > 1 && list[0] == u'!' ? list.sliced(1) : list;
    }

    static bool IsRange(QStringView list) { return list.size() > 2 && list[1] == u'-'; }

    static bool InList(QStringView list, QChar character) {
        if (list.isEmpty())
            return false;
        if (IsRange(list))
            return (list[0].toCaseFolded() <= character && character <= list[2].toCaseFolded()) ||
                   InList(list.sliced(3), character);
        return list[0].toCaseFolded() == character || InList(list.sliced(1), character);
    }
};

/// The bytes as text: most become the characters that mean something in a pattern.
QString TextOf(const std::uint8_t* data, std::size_t size) {
    constexpr QStringView signs = u"*?#[]!-abAB09.";
    QString text;
    for (std::size_t at = 0; at < size; ++at)
        text += data[at] < 0xE0 ? signs[data[at] % signs.size()] : QChar(char16_t{data[at]});
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const std::size_t split = std::size_t(data[0]) * (size - 1) / 255;
    const QString text = TextOf(data + 1, split);
    const QString name = TextOf(data + 1 + split, size - 1 - split);
    const Pattern pattern(text);
    try {
        const bool matches = pattern.Matches(name);
        // Stars make the plain matcher exponential: longer ones take it seconds.
        if (text.size() <= 8 && name.size() <= 8 && matches != PlainMatcher::Matches(text, name))
            std::abort();
    } catch (const netrove::RunTimeError&) {
        if (!text.contains(u'['))
            std::abort();
    }
    return 0;
}
