#pragma once

#include <QString>

namespace netrove {

/// The text, with `suffix` added if it doesn't end in exactly that.
[[nodiscard]] QString EnsureSuffix(const QString& text, const QString& suffix);

/// The local path that the user or a settings file means: "~" is the user's home folder. Empty for
/// a path that doesn't begin at the root: it would depend on where the program is started.
[[nodiscard]] QString LocalPath(const QString& text);

/// The path of that name in a local folder, which is given with its closing separator or without.
[[nodiscard]] QString PathIn(const QString& folder, const QString& name);

/// What stands behind the last dot of a path's last element, in upper case; empty if there is no
/// dot.
[[nodiscard]] QString FileExtension(const QString& path);

/// Whether the text holds one of the characters / \ : * ? " < > | that no name on the network can
/// have.
[[nodiscard]] bool HasIllegalNameChars(const QString& text);

} // namespace netrove
