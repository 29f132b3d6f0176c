#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace netrove {

/// A file name pattern: "*" stands for any run of characters, "?" for any one character, "#" for
/// any digit (0 to 9), [list] and [!list] for one character that is in the list or isn't, and
/// anything else for itself, including "]" outside a list. It matches whole names, without regard
/// to case. A character is a UTF-16 unit.
///
/// In a list, a-f is a range by the codes of the case-folded characters; "-" is itself where it
/// can't be the middle of a range (first, last, behind a range), and so are "*", "?", "#", "["
/// and a "!" that isn't first. "[]", a list of nothing, stands for no character at all; in "[!]"
/// the "!" has nothing to negate and is itself.
///
/// The time of a test is at most proportional to the length of the pattern times that of the name.
class Pattern {
public:
    Pattern() : Pattern(QString()) {}
    /// Takes any text; if it isn't a valid pattern ("[" without its "]", a range from high to low),
    /// each test fails.
    explicit Pattern(const QString& text);

    [[nodiscard]] const QString& Text() const { return text_; }

    /// Raises ErrorNumber::InvalidPatternString if the pattern isn't valid.
    [[nodiscard]] bool Matches(QStringView name) const;

private:
    struct Range {
        char16_t low;
        char16_t high;
    };

    /// A part of the pattern that stands for exactly one character of a name.
    struct Element {
        enum class Kind : quint8 { Any, Digit, Character, InList, NotInList };
        Kind kind = Kind::Any;
        char16_t character = 0; ///< folded
        /// Of a list: its ranges in ranges_; a single character is a range of one.
        quint32 firstRange = 0;
        quint32 endRange = 0;
    };

    /// A run of elements between two asterisks (or an asterisk and an end of the pattern).
    struct Segment {
        qsizetype begin;
        qsizetype end;
        [[nodiscard]] qsizetype Length() const { return end - begin; }
    };

    void Compile();
    [[nodiscard]] qsizetype CompileList(qsizetype begin);
    void EndSegment();
    [[nodiscard]] bool MatchesAt(const Segment& segment, const QChar* name) const;
    [[nodiscard]] bool ElementMatches(const Element& element, char16_t folded) const;
    [[nodiscard]] qsizetype Find(const Segment& segment, QStringView name, qsizetype from) const;

    QString text_;
    bool valid_ = true;
    std::vector<Element> elements_;
    std::vector<Range> ranges_;
    std::vector<Segment>
        segments_; ///< one more than there are runs of asterisks; the middle ones aren't empty
};

} // namespace netrove
