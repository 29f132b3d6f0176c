#include "services/WinVer.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"

namespace netrove {

OSInfo GetOSInfo(const SystemInformation& system) {
    OSInfo info{.Name = system.OSName(), .Version = system.OSVersion()};
    if (info.Version.isEmpty())
        info.Version = u"0.0.0"_s;
    return info;
}

QString GetUserNameText(const SystemInformation& system) {
    constexpr qsizetype longestName = 24;
    const QString name = CutAtZero(system.UserName());
    return name.size() > longestName ? QString() : name;
}

QString GetWorkgroup(const QString& computer, NetworkEnumeration& network) {
    try {
        return network.Workgroup(UpperCase(computer));
    } catch (const RunTimeError&) {
        return QString();
    }
}

} // namespace netrove
