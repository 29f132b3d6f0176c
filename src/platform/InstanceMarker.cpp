#include "platform/InstanceMarker.h"

#include <QStandardPaths>

namespace netrove {
namespace {

QString MarkerPath() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::TempLocation);
    return folder + QLatin1String("/TBS_Netrove.lock");
}

} // namespace

InstanceMarker::InstanceMarker() : lock_(MarkerPath()) {
    // Never given away by age: it stands for a running process.
    lock_.setStaleLockTime(0);
    static_cast<void>(lock_.tryLock(0));
}

} // namespace netrove
