#pragma once

#include <QDateTime>
#include <QString>

namespace netrove {

/// A number by a format of the form "0", "0000", "0.0000" or "0000000.0000000000": at least as
/// many whole digits as zeros stand before the point, exactly as many decimals as stand behind
/// it, halves rounded away from zero. What is rounded is the shortest decimal text of the value,
/// so that 1.005 is a half at two decimals. The decimal separator is the locale's; there is no
/// group separator, and a minus only where a digit other than 0 is left. Raises
/// ErrorNumber::InvalidProcedureCall for any other form, Overflow for a value without an end.
[[nodiscard]] QString FormatNumber(double value, const QString& format);

/// The number that a text made by FormatNumber stands for (the locale's decimal separator).
/// Raises ErrorNumber::TypeMismatch for any other text.
[[nodiscard]] double NumberOfText(const QString& text);

/// A date by a format of letters: M month, D day, Y year, H hour (24), N minute, S second, in
/// either case; the number of letters is the width. One letter gives no leading zero; MMM and
/// MMMM, DDD and DDDD give the locale's short and long names; Y and YY the last two digits, YYY
/// and YYYY all four. A wider run is padded with zeros. All other characters are passed through.
/// A date that isn't valid gives the empty text.
[[nodiscard]] QString FormatDate(const QDateTime& value, const QString& format);

/// The general date form of the locale: date and time in its short forms, with the century and the
/// seconds.
[[nodiscard]] QString GeneralDate(const QDateTime& value);

} // namespace netrove
