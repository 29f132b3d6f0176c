#pragma once

#include <QDateTime>
#include <QString>

namespace netrove {

/// A number in a format of the form "0", "0000", "0.0000" or "0000000.0000000000": at least as
/// many whole digits as there are zeros before the point, exactly as many decimals as there are
/// behind it, halves rounded away from zero. What is rounded is the shortest decimal text of the
/// value, so that 1.005 is a half at two decimals. The decimal separator is the locale's; there is
/// no group separator, and a minus only if a digit other than 0 is left. Raises
/// ErrorNumber::InvalidProcedureCall for any other form, Overflow for an infinite value.
[[nodiscard]] QString FormatNumber(double value, const QString& format);

/// The number that a text made by FormatNumber stands for (the locale's decimal separator).
/// Raises ErrorNumber::TypeMismatch for any other text.
[[nodiscard]] double NumberOfText(const QString& text);

/// A date in a format of letters: M month, D day, Y year, H hour (24), N minute, S second, in
/// either case; the number of letters is the width. One letter gives no leading zero; MMM and
/// MMMM, DDD and DDDD give the locale's short and long names; Y and YY the last two digits, YYY
/// and YYYY all four. Wider runs are padded with zeros. All other characters are copied. An invalid
/// date gives an empty text.
[[nodiscard]] QString FormatDate(const QDateTime& value, const QString& format);

/// A date in the locale's general form: date and time in the locale's short forms, with the century
/// and the seconds.
[[nodiscard]] QString GeneralDate(const QDateTime& value);

} // namespace netrove
