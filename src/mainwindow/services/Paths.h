#pragma once

#include <QString>

namespace netrove {

/// The text, with `suffix` added if it doesn't end in exactly that.
[[nodiscard]] QString EnsureSuffix(const QString& text, const QString& suffix);

/// What stands behind the last dot of a path's last element, in upper case; empty if there is
/// none.
[[nodiscard]] QString FileExtension(const QString& path);

/// Whether the text holds one of the characters / \ : * ? " < > | that no name on the network can
/// have.
[[nodiscard]] bool HasIllegalNameChars(const QString& text);

} // namespace netrove
