#include "runtime/ProgramVersion.h"

namespace netrove {

QString ProgramVersion() {
    return QStringLiteral(NETROVE_VERSION);
}

} // namespace netrove
