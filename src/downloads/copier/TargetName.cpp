#include "downloads/copier/TargetName.h"

#include "downloads/copier/PartialFile.h"
#include "runtime/Names.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <QRegularExpression>

#include <algorithm>

namespace netrove {
namespace {

/// Names that are devices in every folder of some systems, whatever follows them after a point.
bool IsDevice(const QString& name) {
    static const QRegularExpression devices(
        u"^(CON|PRN|AUX|NUL|CONIN\\$|CONOUT\\$|(COM|LPT)[0-9\u00b9\u00b2\u00b3])"
        " *(\\.|$)"_s,
        QRegularExpression::CaseInsensitiveOption);
    return devices.match(name).hasMatch();
}

bool IsControl(QChar character) {
    return character.category() == QChar::Other_Control;
}

} // namespace

void CheckTargetName(const QString& name) {
    const bool isSafe = IsPathElement(name) && name.isValidUtf16() &&
                        std::ranges::none_of(name, IsControl) && !IsDevice(name) &&
                        name.toUtf8().size() <= NameLimits::FileBytes &&
                        !name.endsWith(PartialFile::Suffix);
    if (!isSafe)
        throw RunTimeError(ErrorNumber::PathFileAccessError);
}

} // namespace netrove
