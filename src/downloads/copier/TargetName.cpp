#include "downloads/copier/TargetName.h"

#include "downloads/copier/PartialFile.h"
#include "runtime/Names.h"
#include "runtime/RunTimeError.h"

#include <algorithm>

namespace netrove {
namespace {

bool IsControl(QChar character) {
    return character.category() == QChar::Other_Control;
}

} // namespace

void CheckTargetName(const QString& name) {
    const bool isSafe = IsPathElement(name) && name.isValidUtf16() &&
                        std::ranges::none_of(name, IsControl) &&
                        name.toUtf8().size() <= NameLimits::FileBytes &&
                        !name.endsWith(PartialFile::Suffix) && !name.endsWith(FlushRecord::Suffix);
    if (!isSafe)
        throw RunTimeError(ErrorNumber::PathFileAccessError);
}

} // namespace netrove
