#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QString>

#include <optional>
#include <span>

namespace netrove {

/// The text of a results file: a header, then a line for each row, its fields in double quotes
/// and separated by commas. Nothing in a field is escaped. It is written in UTF-8; Windows-1252 is
/// read as well.
namespace ResultsFormat {

/// The first line, without its end.
[[nodiscard]] QByteArray Header(const QString& version, const QDateTime& saved);

/// Whether a file with this first line is a results file.
[[nodiscard]] bool IsHeader(QByteArrayView line);

/// The line of a row, without its end. A line break in a field becomes U+FFFD, as it would begin a
/// new line.
[[nodiscard]] QByteArray Line(std::span<const QString> fields);

/// The path of the file that the line is about: its second field, the folder, followed by the
/// first, the name. Fields end at commas, whatever the quotes say. Nothing for a line with fewer
/// fields, or one that gives no full path.
[[nodiscard]] std::optional<QString> Path(QByteArrayView line);

/// Whether Path would find a row's file in the row's line: not if its name or folder has a comma or
/// a line break.
[[nodiscard]] bool ComesBack(const QString& name, const QString& folder);

} // namespace ResultsFormat
} // namespace netrove
