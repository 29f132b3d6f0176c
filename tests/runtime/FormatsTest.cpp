#include "runtime/Formats.h"

#include "ExpectRaised.h"

#include <QLocale>

namespace netrove {
namespace {

/// Puts the default locale back.
class Formats : public testing::Test {
protected:
    ~Formats() override { QLocale::setDefault(before_); }

    const QLocale german_{QLocale::German, QLocale::Germany};

private:
    const QLocale before_;
};

TEST_F(Formats, RoundsHalvesAwayFromZero) {
    const struct {
        double value;
        QStringView format;
        QStringView text;
    } cases[] = {{0.5, u"0", u"1"},
                 {2.5, u"0", u"3"},
                 {12345, u"000", u"12345"},
                 {0.125, u"0.00", u"0.13"},
                 {-0.125, u"0.00", u"-0.13"},
                 {1.005, u"0.00", u"1.01"},
                 {1.0049999, u"0.00", u"1.00"},
                 {-0.004, u"0.00", u"0.00"},
                 {4.1852, u"0000.0000000000", u"0004.1852000000"},
                 {1e22, u"0.0", u"10000000000000000000000.0"}};
    QLocale::setDefault(QLocale::c());
    for (const auto& [value, format, text] : cases)
        EXPECT_EQ(FormatNumber(value, format.toString()), text) << value;
    for (const QStringView format : {u"", u"#", u"0.0.0", u"0,0", u"."})
        ExpectRaised(
            ErrorNumber::InvalidProcedureCall, [&] { (void)FormatNumber(1, format.toString()); },
            format.toString());
}

TEST_F(Formats, NumbersFollowTheLocaleThereAndBack) {
    QLocale::setDefault(german_);
    EXPECT_EQ(FormatNumber(1234567.25, QStringLiteral("0.0")), u"1234567,3");
    EXPECT_EQ(NumberOfText(QStringLiteral("1234567,3")), 1234567.3);
    EXPECT_EQ(NumberOfText(QStringLiteral("-12")), -12);
    for (const QStringView text : {u"", u"1.5", u"1,5,2", u"abc", u"inf"})
        ExpectRaised(
            ErrorNumber::TypeMismatch, [&] { (void)NumberOfText(text.toString()); },
            text.toString());
}

TEST_F(Formats, DatesFollowTheLetters) {
    QLocale::setDefault(german_);
    const QDateTime date({2004, 3, 9}, {5, 7, 2});
    const std::pair<QStringView, QStringView> cases[] = {{u"MM/DD/YY", u"03/09/04"},
                                                         {u"YYYYMMDDHHNNSS", u"20040309050702"},
                                                         {u"d.m.yyyy h:n:s", u"9.3.2004 5:7:2"},
                                                         {u"Y YYY yyyyy", u"04 2004 02004"},
                                                         {u"mMm dddd MMMM", u"März Dienstag März"},
                                                         {u"HHH:MMMMM DDD", u"005:00003 Di."},
                                                         {u"a\\AxX'\"q%1", u"a\\AxX'\"q%1"}};
    for (const auto& [format, text] : cases)
        EXPECT_EQ(FormatDate(date, format.toString()), text) << format.toString().toStdString();
    EXPECT_EQ(FormatDate(QDateTime(), QStringLiteral("YYYY")), u"");
}

} // namespace
} // namespace netrove
