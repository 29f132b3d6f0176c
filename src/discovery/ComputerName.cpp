#include "discovery/ComputerName.h"

#include "runtime/Names.h"

#include <algorithm>

namespace netrove {

bool IsComputerName(const QString& text) {
    return IsNodeName(text) && text.size() <= NameLimits::RemoteName && text.isValidUtf16() &&
           !text.front().isSpace() && !text.back().isSpace() &&
           std::ranges::none_of(
               text, [](QChar character) { return character.category() == QChar::Other_Control; });
}

} // namespace netrove
