#include "online/webfiles/Version.h"

#include "runtime/ProgramVersion.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"

namespace netrove {

Version Version::FromText(QStringView text) {
    Version version;
    for (std::size_t part = 0; part < version.numbers.size(); ++part) {
        const bool isLast = part + 1 == version.numbers.size();
        const qsizetype end = isLast ? text.size() : text.indexOf(u'.');
        if (end < 0)
            throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
        version.numbers[part] = ToInteger(text.first(end));
        text = text.sliced(isLast ? end : end + 1);
    }
    return version;
}

Version Version::Own() {
    return FromText(ProgramVersion());
}

QString Version::Text() const {
    return u"%1.%2.%3"_s.arg(numbers[0]).arg(numbers[1]).arg(numbers[2]);
}

} // namespace netrove
