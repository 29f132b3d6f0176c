#include "platform/LinuxSystemInformation.h"

#include <QSysInfo>

#include <pwd.h>
#include <unistd.h>

namespace netrove {

QString LinuxSystemInformation::OSName() const {
    return QSysInfo::prettyProductName();
}

QString LinuxSystemInformation::OSVersion() const {
    return QSysInfo::kernelVersion();
}

QString LinuxSystemInformation::UserName() const {
    const passwd* user = getpwuid(geteuid());
    return user != nullptr ? QString::fromUtf8(user->pw_name) : QString();
}

QString LinuxSystemInformation::ComputerName() const {
    return QSysInfo::machineHostName().section(u'.', 0, 0);
}

} // namespace netrove
