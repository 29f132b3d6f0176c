#include "runtime/Pattern.h"

#include "ExpectRaised.h"

#include <QElapsedTimer>

namespace netrove {
namespace {

TEST(Pattern, MatchesWholeNamesWithoutCase) {
    const struct {
        QStringView pattern;
        std::vector<QStringView> matched;
        std::vector<QStringView> refused;
    } cases[] = {
        {u"", {u""}, {u"a"}},
        {u"*", {u"", u"a", u"a.b"}, {}},
        {u"*.*", {u"A.B.C", u"."}, {u"README"}},
        {u"*.mp3", {u"SONG.MP3", u".mp3", u"a.mp3.Mp3"}, {u"song.mp", u"song.mp33", u"mp3"}},
        {u"a*a", {u"aa", u"aba"}, {u"a", u"ab"}},
        {u"a**b*c", {u"abc", u"aXbbXcc"}, {u"acb", u"ac"}},
        {u"*ab*ab*", {u"abab", u"aabxab"}, {u"ab", u"aab", u"aba"}},
        {u"*aab", {u"aaab", u"aabaab"}, {u"aaba"}},
        {u"track#1.mp3", {u"track21.mp3"}, {u"track#1.mp3", u"tracka1.mp3", u"track\u06611.mp3"}},
        {u"a]b", {u"A]b"}, {u"ab"}},
        {u"über*σ", {u"ÜBERΣ", u"Über-σ"}, {u"uberσ"}},
        {u"??", {u"\U0001F600", u"ab"}, {u"a", u"abc"}},
        {u"[a-f]1", {u"a1", u"C1", u"f1"}, {u"g1", u"1", u"-1"}},
        {u"[A-c]", {u"b"}, {u"d"}},
        {u"[!a-f#]", {u"g", u"1"}, {u"B", u"#", u"", u"gg"}},
        {u"[*][?][#][[]", {u"*?#["}, {u"a?#[", u"*?1["}},
        {u"[-a]", {u"-", u"a"}, {u"b"}},
        {u"[a-]", {u"-", u"a"}, {u"b"}},
        {u"[a-c-e]", {u"b", u"-", u"e"}, {u"d"}},
        {u"a[]b", {u"ab"}, {u"a[]b"}},
        {u"[!]", {u"!"}, {u"a", u""}},
        {u"[!!]", {u"a"}, {u"!"}},
        {u"*[0-9]*[x-z].txt", {u"a1b2Z.txt", u"0x.txt"}, {u"x1.txt", u"ax.txt"}},
        {u"[ä-ü]", {u"Ö"}, {u"o"}},
    };
    for (const auto& [text, matched, refused] : cases) {
        const Pattern pattern(text.toString());
        SCOPED_TRACE(text.toUtf8().constData());
        for (const QStringView name : matched)
            EXPECT_TRUE(pattern.Matches(name)) << name.toUtf8().constData();
        for (const QStringView name : refused)
            EXPECT_FALSE(pattern.Matches(name)) << name.toUtf8().constData();
    }
}

TEST(Pattern, InvalidPatternsFailAtTheFirstTest) {
    for (const QStringView text : {u"[", u"a*b[", u"x[!a", u"[z-a]", u"[a][9-0]*", u"q[ü-a"}) {
        const Pattern pattern(text.toString());
        ExpectRaised(
            ErrorNumber::InvalidPatternString, [&] { (void)pattern.Matches(u""); },
            text.toString());
    }
}

TEST(Pattern, ManyAsterisksOnALongNameTakeNoTime) {
    const Pattern pattern(QStringLiteral("*a").repeated(100) + QStringLiteral("b*"));
    QElapsedTimer time;
    time.start();
    EXPECT_FALSE(pattern.Matches(QString(5000, u'a')));
    EXPECT_LT(time.elapsed(), 1000);
}

} // namespace
} // namespace netrove
