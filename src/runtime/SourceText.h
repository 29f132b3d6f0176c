#pragma once

#include <QString>

namespace netrove {

/// How texts are written in the source: u"..."_s is a QString, "..."_L1 a Latin-1 text that is
/// compared with or joined to others, u'.' a character.
using Qt::Literals::StringLiterals::operator""_s;
using Qt::Literals::StringLiterals::operator""_L1;

/// A text of a table in the source.
[[nodiscard]] inline QString Text(const char* text) {
    return QString::fromUtf8(text);
}

} // namespace netrove
