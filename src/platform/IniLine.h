#pragma once

#include <QStringView>

namespace netrove {

/// One line of an INI text, taken apart. The views point into the text that was parsed.
struct IniLine {
    enum class Kind {
        Blank,
        Comment, ///< begins with ";"
        Section, ///< "[name]", also with the bracket left open
        Entry,   ///< "key=value"
        Other,   ///< none of these
    };

    Kind kind = Kind::Blank;
    QStringView name; ///< of the section or the key, without the blanks and tabs around it
    /// Of an entry, without the blanks and tabs around it and then without one pair of quotation
    /// marks (both " or both ').
    QStringView value;
    bool closed = true; ///< false for a section without its "]"

    /// Parses any text without line feeds; a carriage return at its end counts as a blank.
    [[nodiscard]] static IniLine Parse(QStringView text);
};

} // namespace netrove
