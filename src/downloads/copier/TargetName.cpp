#include "downloads/copier/TargetName.h"

#include "downloads/copier/PartialFile.h"
#include "runtime/RunTimeError.h"

#include <QRegularExpression>

#include <algorithm>

namespace netrove {
namespace {

constexpr qsizetype MaxNameBytes = 255;

/// Names that are devices in every folder of some systems, whatever follows them after a point.
bool IsDevice(const QString& name) {
    static const QRegularExpression devices(
        QStringLiteral("^(CON|PRN|AUX|NUL|CONIN\\$|CONOUT\\$|(COM|LPT)[0-9\u00b9\u00b2\u00b3])"
                       " *(\\.|$)"),
        QRegularExpression::CaseInsensitiveOption);
    return devices.match(name).hasMatch();
}

bool IsForbidden(QChar character) {
    return character == QLatin1Char('/') || character == QLatin1Char('\\') ||
           character.category() == QChar::Other_Control;
}

} // namespace

void CheckTargetName(const QString& name) {
    const bool isSafe = !name.isEmpty() && name != QLatin1String(".") &&
                        name != QLatin1String("..") && name.isValidUtf16() &&
                        std::none_of(name.begin(), name.end(), IsForbidden) && !IsDevice(name) &&
                        name.toUtf8().size() <= MaxNameBytes && !name.endsWith(PartialFile::Suffix);
    if (!isSafe)
        throw RunTimeError(ErrorNumber::PathFileAccessError);
}

} // namespace netrove
