#pragma once

#include <QString>

namespace netrove {

/// What has changed from release to release: one paragraph per release, the newest first.
[[nodiscard]] QString VersionHistory();

} // namespace netrove
