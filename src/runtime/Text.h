#pragma once

#include <QCollator>
#include <QString>
#include <QStringView>

namespace netrove {

/// Compares two texts without regard to case, in the order of the system's locale: below 0, 0 or
/// above 0. Equal means equal but for case, exactly where EqualText says so; it never ignores
/// accents, nor that an accent is written apart from its letter.
[[nodiscard]] int CompareText(QStringView left, QStringView right);
[[nodiscard]] bool EqualText(QStringView left, QStringView right);

/// A text made ready for being compared many times, as sorting does: keys stand in the order that
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

/// The number at the beginning of a text: blanks, tabs and line feeds are skipped wherever they
/// stand ("5 000" is 5000), an optional sign, digits, a point and an exponent ("E" or "D"), or
/// "&H" or "&O" and digits, are taken as far as they go. The point is always ".", whatever the
/// locale. A text that begins with no number gives 0. Raises ErrorNumber::Overflow for a number
/// that no double can hold.
[[nodiscard]] double LeadingNumber(QStringView text);

/// Whether the text is such a number and nothing else, blanks around allowed, and one that a double
/// can hold.
[[nodiscard]] bool IsNumeric(QStringView text);

/// LeadingNumber rounded to the nearest whole number, a tie going to the even one. Raise
/// ErrorNumber::Overflow where the result doesn't fit 16 or 32 bits, signed.
[[nodiscard]] qint16 LeadingInteger(QStringView text);
[[nodiscard]] qint32 LeadingLong(QStringView text);

/// A number and nothing else, white space around allowed, rounded as by LeadingInteger. Raises
/// ErrorNumber::TypeMismatch for any other text, Overflow where it doesn't fit 16 bits, signed.
[[nodiscard]] qint16 ToInteger(QStringView text);

/// "True" or "False" in any case, or a number and nothing else (0 is false, any other true),
/// blanks around allowed. Raises ErrorNumber::TypeMismatch for anything else, the empty text
/// included.
[[nodiscard]] bool ToBoolean(QStringView text);

/// LeadingNumber as a Single. Raises ErrorNumber::Overflow for a number that none can hold.
[[nodiscard]] float LeadingSingle(QStringView text);

/// The shortest decimal text without an exponent that stands for this Single and no other ("1500",
/// "8.25"); the point is always ".".
[[nodiscard]] QString SingleText(float value);

/// "True" or "False".
[[nodiscard]] QString BooleanWord(bool value);

} // namespace netrove
