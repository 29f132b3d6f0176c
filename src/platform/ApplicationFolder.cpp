#include "platform/ApplicationFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace netrove {

QString ApplicationFolder() {
    const QString beside = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
    if (!beside.isEmpty() && QFileInfo(beside).isWritable())
        return beside;
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                         QLatin1String("/netrove");
    QDir().mkpath(data);
    return data;
}

} // namespace netrove
