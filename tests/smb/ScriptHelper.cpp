// Stands in for netrove-smb in tests, as the interpreter of a script: each helper is the shell that
// runs it.

#include "smb/HelperLaunch.h"

#include <unistd.h>

int main(int /*count*/, char** arguments) {
    if (netrove::LaunchHelpers())
        execl("/bin/sh", "sh", arguments[1], nullptr);
    return 0;
}
