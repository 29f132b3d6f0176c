#pragma once

#include <QLockFile>

namespace netrove {

/// Marks, while it exists, that the program runs in this session: by the lock file
/// "TBS_Netrove.lock" in the user's runtime folder, for installers and scripts that want to know.
/// Nothing in the program looks at it, and if it can't be made (another instance has it), the
/// program runs all the same.
class InstanceMarker {
public:
    InstanceMarker();

private:
    QLockFile lock_;
};

} // namespace netrove
