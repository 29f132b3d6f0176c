#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace netrove {

/// A file name pattern: "*" any run of characters, "?" any one character, "#" any digit,
/// [list] and [!list] one character in or not in a list with ranges, all else itself. It matches
/// whole names, without regard to case by the locale's rules. A character is a UTF-16 unit.
///
/// The time of a test is at most proportional to the length of the pattern times that of the name.
class Pattern {
public:
    Pattern() = default;
    /// Takes any text; one that is no valid pattern ("[" without its "]", a range from high to
    /// low) fails at its first test.
    explicit Pattern(const QString& text);

    [[nodiscard]] const QString& Text() const { return text_; }

    /// Raises ErrorNumber::InvalidPatternString if the pattern isn't valid.
    [[nodiscard]] bool Matches(QStringView name) const;

private:
    QString text_;
};

} // namespace netrove
