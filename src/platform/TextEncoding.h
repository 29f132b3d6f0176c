#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace netrove {

/// The text that the bytes are in UTF-8, a byte order mark included as a character; nothing where
/// they aren't valid UTF-8.
[[nodiscard]] std::optional<QString> FromUtf8(QByteArrayView bytes);

/// The text that the bytes are in the code page Windows-1252. Its five unused bytes become the
/// control characters of the same number, so that different bytes always give different texts.
[[nodiscard]] QString FromWindows1252(QByteArrayView bytes);

/// UTF-8, or Windows-1252 where the bytes aren't valid UTF-8: how files of older installations
/// are read.
[[nodiscard]] QString FromUtf8OrWindows1252(QByteArrayView bytes);

} // namespace netrove
