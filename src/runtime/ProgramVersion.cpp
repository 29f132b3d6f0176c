#include "runtime/ProgramVersion.h"

namespace netrove {

QString ProgramVersion() {
    return QString::fromUtf8(NETROVE_VERSION);
}

QDate ReleaseDate() {
    return QDate::fromString(QString::fromUtf8(NETROVE_RELEASED), Qt::ISODate);
}

} // namespace netrove
