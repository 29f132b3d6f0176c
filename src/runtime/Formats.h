#pragma once

#include <QDateTime>
#include <QString>

namespace netrove {

/// A number by a format of the form "0", "0000", "0.0000" or "0000000.0000000000": at least as
/// many whole digits as zeros stand before the point, exactly as many decimals as stand behind
/// it, halves rounded away from zero. The decimal separator is the locale's; there is no group
/// separator.
[[nodiscard]] QString FormatNumber(double value, const QString& format);

/// The number that a text made by FormatNumber stands for (the locale's decimal separator).
[[nodiscard]] double NumberOfText(const QString& text);

/// A date by a format of letters: M month, D day, Y year, H hour (24), N minute, S second, in
/// either case; the number of letters is the width. One letter gives no leading zero; MMM and
/// MMMM, DDD and DDDD give the locale's short and long names; Y and YY the last two digits, YYYY
/// all four. A wider run is padded with zeros. All other characters are passed through.
[[nodiscard]] QString FormatDate(const QDateTime& value, const QString& format);

/// The general date form of the system's locale: date and time as the user is used to see them.
[[nodiscard]] QString GeneralDate(const QDateTime& value);

} // namespace netrove
