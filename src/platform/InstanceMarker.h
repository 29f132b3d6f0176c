#pragma once

#include <QLockFile>

namespace netrove {

/// Marks for as long as it lives that the program runs in this session: the lock file
/// "TBS_Netrove.lock" in the user's runtime folder, for installers and scripts that want to know.
/// Nothing in the program looks at it, and where it can't be made (another instance has it) the
/// program runs on all the same.
class InstanceMarker {
public:
    InstanceMarker();

private:
    QLockFile lock_;
};

} // namespace netrove
