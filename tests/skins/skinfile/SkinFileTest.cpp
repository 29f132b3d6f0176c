#include "skins/skinfile/SkinFile.h"

#include "runtime/RunTimeError.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

const QString Member = QStringLiteral("M");

SkinFile WithValue(const char* value) {
    return SkinFile(QStringLiteral("<skin name='S'><!-- one --><member name='M' value='%1'/>"
                                   "<other><member/></other></skin>")
                        .arg(QString::fromUtf8(value)));
}

TEST(SkinFileTest, GivesValuesOfTheirKinds) {
    EXPECT_EQ(WithValue("1").Name(), QLatin1String("S"));
    EXPECT_EQ(WithValue("-17").Number(Member), -17);
    EXPECT_EQ(WithValue("0.5").Fraction(Member), 0.5F);
    EXPECT_EQ(WithValue("True").Boolean(Member), true);
    EXPECT_EQ(WithValue("255, 1,0").Color(Member), 0x0001FFU);
    EXPECT_EQ(WithValue("1").Number(QStringLiteral("Other")), std::nullopt);

    for (const char* value : {"", "x", "1x", "4097", "-99999999999", "1.5"})
        EXPECT_THROW(static_cast<void>(WithValue(value).Number(Member)), RunTimeError) << value;
    for (const char* value : {"", "nan", "inf", "1e99"})
        EXPECT_THROW(static_cast<void>(WithValue(value).Fraction(Member)), RunTimeError) << value;
    for (const char* value : {"1,2", "1,2,3,4", "1,2,256", "-1,0,0", "#010203"})
        EXPECT_THROW(static_cast<void>(WithValue(value).Color(Member)), RunTimeError) << value;
    EXPECT_THROW(static_cast<void>(WithValue("true").Boolean(Member)), RunTimeError);
}

TEST(SkinFileTest, FailsForWhatIsNoSkinFile) {
    QString many = QStringLiteral("<skin>");
    for (int number = 0; number <= SkinFile::MostMembers; ++number)
        many += QStringLiteral("<member name='%1'/>").arg(number);
    const QString bad[] = {
        QString(),
        QStringLiteral("[Skin]"),
        QStringLiteral("<skins/>"),
        QStringLiteral("<skin></skin><skin></skin>"),
        QStringLiteral("<skin><member name='M' value=1/></skin>"),
        QStringLiteral("<!DOCTYPE s [<!ENTITY e 'x'>]><skin name='&e;'/>"),
        QStringLiteral("<skin name='%1'/>").arg(QString(SkinFile::LongestValue + 1, u'n')),
        many + QStringLiteral("</skin>"),
        QStringLiteral("<skin/>") + QString(SkinFile::LongestText, u' '),
        QStringLiteral("<skin>\n<member\n</skin>"),
    };
    QString last;
    for (const QString& text : bad) {
        try {
            const SkinFile file(text);
            ADD_FAILURE() << text.left(60).toStdString();
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.Number(), int(ErrorNumber::InvalidPropertyValue));
            last = failure.Description();
        }
    }
    EXPECT_TRUE(last.contains(QLatin1String("line 3"))) << last.toStdString();
}

} // namespace
} // namespace netrove
