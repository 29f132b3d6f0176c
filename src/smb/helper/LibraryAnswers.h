#pragma once

#include "smb/SmbMessages.h"

#include <ctime>

#include <sys/stat.h>

namespace netrove {

/// The errno of the library's call that has just failed; EIO where the library left it at 0.
[[nodiscard]] int LibraryFailure();

[[nodiscard]] qint64 Milliseconds(const timespec& time);
[[nodiscard]] qint64 Nanoseconds(const timespec& time);

/// What the library tells about one file.
[[nodiscard]] SmbEntries EntryOf(const struct stat& file);

} // namespace netrove
