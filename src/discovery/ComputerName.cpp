#include "discovery/ComputerName.h"

#include <algorithm>

namespace netrove {

bool IsComputerName(const QString& text) {
    constexpr qsizetype maxLength = 255;
    constexpr QStringView separators = u"\\/|";
    return !text.isEmpty() && text.size() <= maxLength && text != QLatin1String(".") &&
           text != QLatin1String("..") && text.isValidUtf16() && !text.front().isSpace() &&
           !text.back().isSpace() && std::none_of(text.begin(), text.end(), [&](QChar character) {
               return separators.contains(character) ||
                      character.category() == QChar::Other_Control;
           });
}

} // namespace netrove
