#include "runtime/ProgramVersion.h"
#include "smb/HelperLaunch.h"
#include "smb/helper/Channel.h"
#include "smb/helper/Session.h"
#include "smb/helper/SmbClient.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

int main() {
    using namespace netrove;

    if (!Channel::IsThere()) {
        std::fprintf(stderr,
                     "netrove-smb %s: speaks SMB for Netrove, which starts it itself. Start "
                     "netrove or netrove-find instead.\n",
                     qPrintable(ProgramVersion()));
        return 2;
    }
    // A folder without end must not take all of the machine's memory: the library keeps the whole
    // listing.
    const rlimit memory{NETROVE_SMB_MEMORY, NETROVE_SMB_MEMORY};
    setrlimit(RLIMIT_DATA, &memory);
    // This process's memory holds passwords, some in copies of the library's: there must be no core
    // file, and no other process of the user may read it.
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    prctl(PR_SET_DUMPABLE, 0);
    std::signal(SIGPIPE, SIG_IGN);
    if (!LaunchHelpers())
        return EXIT_SUCCESS;
    SmbClient client;
    if (!client.IsReady())
        return EXIT_FAILURE;
    Session(client).Run();
    // Without the library's goodbyes to servers, which could take long where a server has gone.
    _exit(EXIT_SUCCESS);
}
