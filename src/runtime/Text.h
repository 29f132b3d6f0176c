#pragma once

#include <QCollator>
#include <QString>
#include <QStringView>

namespace netrove {

/// Compares two texts without regard to case, in the order of the system's locale: below 0, 0 or
/// above 0. 0 means equal but for case, exactly as EqualText says: accents count, and so does
/// whether an accent is a character of its own.
[[nodiscard]] int CompareText(QStringView left, QStringView right);
[[nodiscard]] bool EqualText(QStringView left, QStringView right);

/// A text prepared for being compared many times, as in sorting: keys have the same order as
/// CompareText gives their texts, at a fraction of its cost.
class TextSortKey {
public:
    explicit TextSortKey(QStringView text);

    /// Below 0, 0 or above 0, as CompareText.
    [[nodiscard]] int Compare(const TextSortKey& other) const;

private:
    QString folded_;
    QCollatorSortKey order_;
};

/// Upper case, character by character: the text keeps its length ("ß" stays).
[[nodiscard]] QString UpperCase(QStringView text);

/// Removes blanks (U+0020 only) at both ends.
[[nodiscard]] QString Trim(QStringView text);

/// The text up to its first zero character; all of it if there is none.
[[nodiscard]] QString CutAtZero(QStringView text);

/// The number at the beginning of a text: an optional sign, digits, a point and an exponent ("E" or
/// "D"), or "&H" or "&O" and digits, as far as they go. Blanks, tabs and line feeds are skipped
/// wherever they stand ("5 000" is 5000). The point is always ".", whatever the locale. A text that
/// doesn't begin with a number gives 0. Raises ErrorNumber::Overflow for a number that no double
/// can hold.
[[nodiscard]] double LeadingNumber(QStringView text);

/// Whether the text is such a number and nothing else, except for blanks around it, and a double
/// can hold it.
[[nodiscard]] bool IsNumeric(QStringView text);

/// LeadingNumber rounded to the nearest whole number, ties to the even one. Raise
/// ErrorNumber::Overflow if the result doesn't fit 16 or 32 bits, signed.
[[nodiscard]] qint16 LeadingInteger(QStringView text);
[[nodiscard]] qint32 LeadingLong(QStringView text);

/// The number that a text is, which may hold nothing else but white space around it; rounded as by
/// LeadingInteger. Raises ErrorNumber::TypeMismatch for any other text, Overflow if the number
/// doesn't fit 16 bits, signed.
[[nodiscard]] qint16 ToInteger(QStringView text);

/// The Boolean that a text stands for: "True" or "False" in any case, or a number (0 is false, any
/// other true), with nothing else but blanks around it. Raises ErrorNumber::TypeMismatch for any
/// other text, including the empty one.
[[nodiscard]] bool ToBoolean(QStringView text);

/// LeadingNumber as a Single. Raises ErrorNumber::Overflow for a number that none can hold.
[[nodiscard]] float LeadingSingle(QStringView text);

/// The shortest decimal text without an exponent that stands for this Single and no other ("1500",
/// "8.25"); the point is always ".".
[[nodiscard]] QString SingleText(float value);

/// "True" or "False".
[[nodiscard]] QString BooleanWord(bool value);

} // namespace netrove
