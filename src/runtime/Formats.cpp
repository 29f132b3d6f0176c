#include "runtime/Formats.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace netrove {

namespace {

struct NumberFormat {
    qsizetype wholeDigits = 0;
    qsizetype decimals = 0;
};

NumberFormat ParsedFormat(const QString& format) {
    const qsizetype point = format.indexOf(u'.');
    const qsizetype zeros = format.count(u'0');
    if (zeros == 0 || zeros + (point < 0 ? 0 : 1) != format.size())
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    const qsizetype wholeDigits = point < 0 ? zeros : point;
    return {.wholeDigits = wholeDigits, .decimals = zeros - wholeDigits};
}

/// A number, given by its decimal digits, plus one.
QString Incremented(QString digits) {
    qsizetype at = digits.size();
    while (at > 0 && digits[at - 1] == u'9')
        digits[--at] = u'0';
    if (at == 0)
        return u'1' + digits;
    digits[at - 1] = QChar(static_cast<char16_t>(digits[at - 1].unicode() + 1));
    return digits;
}

/// A part of a date in at least `width` digits.
QString Padded(int value, qsizetype width) {
    return QString::number(value).rightJustified(width, u'0');
}

QString MonthText(QDate date, qsizetype width) {
    if (width == 3)
        return QLocale().monthName(date.month(), QLocale::ShortFormat);
    if (width == 4)
        return QLocale().monthName(date.month(), QLocale::LongFormat);
    return Padded(date.month(), width);
}

QString DayText(QDate date, qsizetype width) {
    if (width == 3)
        return QLocale().dayName(date.dayOfWeek(), QLocale::ShortFormat);
    if (width == 4)
        return QLocale().dayName(date.dayOfWeek(), QLocale::LongFormat);
    return Padded(date.day(), width);
}

QString YearText(QDate date, qsizetype width) {
    return width <= 2 ? Padded(date.year() % 100, 2)
                      : Padded(date.year(), std::max<qsizetype>(width, 4));
}

bool IsDateLetter(QChar letter) {
    return u"MDYHNS"_s.contains(letter, Qt::CaseInsensitive);
}

/// The text that a run of a date letter stands for.
QString DatePart(const QDateTime& value, QChar letter, qsizetype width) {
    switch (letter.unicode()) {
    case u'M':
        return MonthText(value.date(), width);
    case u'D':
        return DayText(value.date(), width);
    case u'Y':
        return YearText(value.date(), width);
    case u'H':
        return Padded(value.time().hour(), width);
    case u'N':
        return Padded(value.time().minute(), width);
    default:
        return Padded(value.time().second(), width);
    }
}

} // namespace

QString FormatNumber(double value, const QString& format) {
    const auto [wholeDigits, decimals] = ParsedFormat(format);
    if (!std::isfinite(value))
        throw RunTimeError(ErrorNumber::Overflow);

    // The shortest decimal text of the value is what a user takes it for: 1.005 is a tie at two
    // decimals, though the double next to it lies a little below.
    QString digits = QString::number(std::abs(value), 'f', QLocale::FloatingPointShortest);
    qsizetype point = digits.indexOf(u'.');
    if (point < 0)
        point = digits.size();
    else
        digits.remove(point, 1);

    const qsizetype kept = point + decimals;
    if (kept < digits.size()) {
        const bool up = digits[kept] >= u'5';
        digits.truncate(kept);
        if (up)
            digits = Incremented(digits);
    } else {
        digits = digits.leftJustified(kept, u'0');
    }
    const bool negative = value < 0 && digits.count(u'0') != digits.size();

    digits = digits.rightJustified(wholeDigits + decimals, u'0');
    if (decimals > 0)
        digits.insert(digits.size() - decimals, QLocale().decimalPoint());
    return negative ? u'-' + digits : digits;
}

double NumberOfText(const QString& text) {
    QString plain = text;
    if (const QString separator = QLocale().decimalPoint(); separator != u".") {
        if (plain.contains(u'.'))
            throw RunTimeError(ErrorNumber::TypeMismatch);
        plain.replace(separator, u"."_s);
    }
    bool isNumber = false;
    const double value = plain.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value))
        throw RunTimeError(ErrorNumber::TypeMismatch);
    return value;
}

QString FormatDate(const QDateTime& value, const QString& format) {
    if (!value.isValid())
        return QString();
    QString result;
    for (qsizetype at = 0, end = 0; at < format.size(); at = end) {
        const QChar letter = format[at].toUpper();
        end = at + 1;
        if (!IsDateLetter(letter)) {
            result += format[at];
            continue;
        }
        while (end < format.size() && format[end].toUpper() == letter)
            ++end;
        result += DatePart(value, letter, end - at);
    }
    return result;
}

QString GeneralDate(const QDateTime& value) {
    // The locale's short forms, but with the century and the seconds.
    const QLocale locale;
    QString date = locale.dateFormat(QLocale::ShortFormat);
    if (!date.contains(u"yyyy"_s))
        date.replace(u"yy"_s, u"yyyy"_s);
    QString time = locale.timeFormat(QLocale::ShortFormat);
    if (const qsizetype minute = time.indexOf(u"mm"_s); minute > 0 && !time.contains(u's'))
        time.insert(minute + 2, time[minute - 1] == u'.' ? u".ss"_s : u":ss"_s);
    return locale.toString(value, date + u' ' + time);
}

} // namespace netrove
