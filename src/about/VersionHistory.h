#pragma once

#include <QString>

namespace netrove {

/// What has changed from release to release: a paragraph each, the newest first.
[[nodiscard]] QString VersionHistory();

} // namespace netrove
