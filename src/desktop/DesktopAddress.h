#pragma once

#include "platform/Files.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace netrove {

/// The "smb:" address of a path in the Universal Naming Convention, at `server` if that is given,
/// otherwise by the computer's name. Every character of a name that could mean something else in an
/// address or to a program that reads it is percent-encoded. Nothing where the text isn't such a
/// path, or holds an empty name, ".", "..", a "/" or a zero character, or where the computer's name
/// can't stand in an address.
[[nodiscard]] std::optional<QUrl> SmbAddress(const QString& networkPath,
                                             const std::optional<ServerAddress>& server = {});

/// The "file:" address of an absolute local path, encoded in the same way.
[[nodiscard]] QUrl FileAddress(const QString& localPath);

/// An http, https or mailto address as it may be handed to the desktop; nothing for all others.
[[nodiscard]] std::optional<QUrl> WebAddress(const QString& text);

} // namespace netrove
