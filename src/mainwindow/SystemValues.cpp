#include "mainwindow/SystemValues.h"

#include "runtime/Text.h"
#include "services/WinVer.h"

namespace netrove {

SystemValues ReadSystemValues(const SystemInformation& system) {
    const OSInfo info = GetOSInfo(system);
    return {.OSName = UpperCase(info.Name),
            .OSVersion = info.Version,
            .CurrentUser = CutAtZero(GetUserNameText(system)),
            .IsWinNT = info.IsNT,
            .IsWinXP = info.IsXP};
}

} // namespace netrove
