#include "platform/InstanceMarker.h"

#include "runtime/SourceText.h"

#include <QStandardPaths>

namespace netrove {
namespace {

QString MarkerPath() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::TempLocation);
    return folder + "/TBS_Netrove.lock"_L1;
}

} // namespace

InstanceMarker::InstanceMarker() : lock_(MarkerPath()) {
    // However old the lock is, its process still runs.
    lock_.setStaleLockTime(0);
    static_cast<void>(lock_.tryLock(0));
}

} // namespace netrove
