#pragma once

#include <QString>

namespace netrove {

/// The search text: file name patterns, separated by commas.
class SearchText {
public:
    /// The text without the blanks around each pattern and without empty patterns.
    [[nodiscard]] static QString Strip(const QString& text);

    /// The text with an asterisk before and behind each pattern, so that plain words find the
    /// names that they are a part of.
    [[nodiscard]] static QString EncloseInAsterisks(const QString& text);
};

} // namespace netrove
