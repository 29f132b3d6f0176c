#include "runtime/ProgramVersion.h"

namespace netrove {

QString ProgramVersion() {
    return QStringLiteral(NETROVE_VERSION);
}

QDate ReleaseDate() {
    return QDate::fromString(QStringLiteral(NETROVE_RELEASED), Qt::ISODate);
}

} // namespace netrove
