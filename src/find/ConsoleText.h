#pragma once

#include <QString>

namespace netrove {

/// Which characters of a name aren't printed as they are.
enum class Escaping {
    LineBreaks,  ///< so that a name can't forge a line
    TabsToo,     ///< nor a column
    AllControls, ///< nor control a terminal, nor change the direction of writing
};

/// The text with such characters replaced by their codes in angle brackets, <0A>: no name on the
/// network can hold those brackets, while a backslash would be taken for part of a path.
[[nodiscard]] QString Escaped(const QString& text, Escaping escaping);

/// How many columns of a terminal the text takes.
[[nodiscard]] int TerminalColumns(const QString& text);

} // namespace netrove
