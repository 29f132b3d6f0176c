#pragma once

#include <QString>

namespace netrove {

/// Which characters of a name aren't printed as they are.
enum class Escaping {
    LineBreaks,  ///< so that a name can't forge a line
    TabsToo,     ///< nor a column
    AllControls, ///< nor command a terminal, or turn the direction of writing
};

/// The text with such characters as their codes in angle brackets, <0A>: no name on the network
/// can hold those, while a backslash would be taken for that of a path.
[[nodiscard]] QString Escaped(const QString& text, Escaping escaping);

/// How many columns of a terminal the text takes.
[[nodiscard]] int TerminalColumns(const QString& text);

} // namespace netrove
