#include "runtime/Text.h"

#include "ExpectRaised.h"
#include "fakes/Text.h"
#include "runtime/Names.h"

#include <QLocale>

namespace netrove {
namespace {

TEST(Text, ComparesByLocaleWithoutCase) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const struct {
        QStringView left;
        QStringView right;
        int sign;
    } cases[] = {
        {u"", u"a", -1},
        {u"Song", u"sONG", 0},
        {u"ÄRGER", u"ärger", 0},
        {u"Zebra", u"apfel", 1},
        {u"Äpfel", u"Birne", -1}, // as a code the umlaut would stand behind
        {u"Apfel", u"Äpfel", -1}, // but an accent makes a difference
        {u"\u00E9", u"e\u0301", 1},
        {u"\U00010400", u"\U00010428", 0}, // a pair of letters outside the first plane
    };
    const auto signOf = [](int order) { return (order > 0) - (order < 0); };
    for (const auto& [left, right, sign] : cases) {
        SCOPED_TRACE(QString(left.toString() + u" ? " + right.toString()).toStdString());
        EXPECT_EQ(signOf(CompareText(left, right)), sign);
        EXPECT_EQ(signOf(CompareText(right, left)), -sign);
        EXPECT_EQ(EqualText(left, right), sign == 0);
        EXPECT_EQ(signOf(TextSortKey(left).Compare(TextSortKey(right))), sign);
    }
    QLocale::setDefault(before);
}

TEST(Text, ShapesTexts) {
    EXPECT_EQ(UpperCase(u"straße ñ\U00010428\xD800 7"), u"STRAßE Ñ\U00010400\xD800 7");
    EXPECT_EQ(Trim(u"  a b\t "), u"a b\t");
    EXPECT_EQ(Trim(u"   "), u"");
    EXPECT_EQ(CutAtZero(QStringView(u"name\0rest", 9)), u"name");
}

TEST(Text, ReadsNumbersAtTheBeginning) {
    const std::pair<QStringView, double> cases[] = {
        {u"", 0},         {u"abc", 0},     {u" \t\n-12.5x", -12.5},
        {u"5 000", 5000}, {u"+.5", .5},    {u"3.", 3},
        {u".", 0},        {u"-", 0},       {u"--1", 0},
        {u"1,5", 1},      {u"1.5.2", 1.5}, {u"1e3", 1000},
        {u"2D-1", .2},    {u"1E", 1},      {u"7e+", 7},
        {u"e5", 0},       {u"&HfFz", 255}, {u"&o178", 15},
        {u"&H", 0},       {u"&7", 0},      {u"0e999", 0},
        {u"1e-999", 0},   {u"\u0661", 0},  {u"8.25 pt", 8.25},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(LeadingNumber(text), number) << text.toString().toStdString();
    for (const QString& text :
         {Text("1e999"), Text("-1e99999999999999999999"), QString(u"&H" + QString(300, u'F'))})
        ExpectRaised(
            ErrorNumber::Overflow, [&] { (void)LeadingNumber(text); }, text);
}

TEST(Text, RoundsTiesToTheEvenAndChecksTheRange) {
    EXPECT_EQ(LeadingInteger(u"2.5"), 2);
    EXPECT_EQ(LeadingInteger(u"-3.5"), -4);
    EXPECT_EQ(LeadingInteger(u"32767.4"), 32767);
    EXPECT_EQ(LeadingInteger(u"-32768.5"), -32768);
    EXPECT_EQ(LeadingLong(u"2147483647.4"), 2147483647);
    for (const QStringView text : {u"32767.5", u"-32769", u"&HFFFF"})
        ExpectRaised(
            ErrorNumber::Overflow, [&] { (void)LeadingInteger(text); }, text.toString());
    ExpectRaised(
        ErrorNumber::Overflow, [] { (void)LeadingLong(u"2147483648"); }, QStringLiteral("Long"));
}

TEST(Text, WritesSinglesThatReadBackTheSame) {
    for (const char* text : {"0", "-0.5", "8.25", "0.1", "1500", "100000", "16777216",
                             "0.00000000000000000000000000000000000001"})
        EXPECT_EQ(SingleText(LeadingSingle(QString::fromLatin1(text))), QLatin1String(text));
    EXPECT_EQ(LeadingSingle(SingleText(1.0F / 3)), 1.0F / 3);
    ExpectRaised(
        ErrorNumber::Overflow, [] { (void)LeadingSingle(u"3.5e38"); }, QStringLiteral("Single"));
}

TEST(Text, TellsNumbersFromOtherTexts) {
    for (const QStringView text : {u"5", u" -12.5 ", u".5", u"1e2", u"&H1F", u"32001"})
        EXPECT_TRUE(IsNumeric(text)) << text.toString().toStdString();
    for (const QStringView text : {u"", u"abc", u"5 files", u"1 0", u"-", u"&H", u"1e999"})
        EXPECT_FALSE(IsNumeric(text)) << text.toString().toStdString();
}

TEST(Text, ReadsBooleans) {
    for (const QStringView text : {u"True", u"tRUE", u" true ", u"-1", u"1", u".5", u"1e2", u"&H1"})
        EXPECT_TRUE(ToBoolean(text)) << text.toString().toStdString();
    for (const QStringView text : {u"False", u" FALSE", u"0", u"0.0", u"-0"})
        EXPECT_FALSE(ToBoolean(text)) << text.toString().toStdString();
    for (const QStringView text :
         {u"", u"  ", u"yes", u"True1", u"1x", u"1 0", u"&H", u"-", u"\ttrue"})
        ExpectRaised(
            ErrorNumber::TypeMismatch, [&] { (void)ToBoolean(text); }, text.toString());
}

TEST(NamesTest, AreOneByTheUpperCaseOfEachCharacter) {
    EXPECT_EQ(NameKey(QStringLiteral("Büro-é")), NameKey(QStringLiteral("BÜRO-É")));
    EXPECT_TRUE(IsSameName(u"KAPı", UpperCase(u"KAPı"))) << "as it is looked up once it was typed";
    EXPECT_FALSE(IsSameName(u"Straße", u"STRASSE"));
    for (const QStringView text : {u"", u".", u"..", u"a/b", u"a\\b"})
        EXPECT_FALSE(IsPathElement(text)) << text.toString().toStdString();
    EXPECT_FALSE(IsPathElement(QString(QChar::Null)));
    EXPECT_TRUE(IsPathElement(u"...") && IsPathElement(u"a|b") && !IsNodeName(u"a|b"));
}

} // namespace
} // namespace netrove
