#include "search/SearchText.h"

#include "runtime/Text.h"

#include <QStringList>

namespace netrove {

QString SearchText::Strip(const QString& text) {
    QStringList patterns;
    for (const QString& piece : text.split(QLatin1Char(','))) {
        if (const QString pattern = Trim(piece); !pattern.isEmpty())
            patterns.append(pattern);
    }
    return patterns.join(QLatin1Char(','));
}

QString SearchText::EncloseInAsterisks(const QString& text) {
    QStringList patterns = text.split(QLatin1Char(','));
    for (QString& pattern : patterns)
        pattern = QLatin1Char('*') + pattern + QLatin1Char('*');
    return patterns.join(QLatin1Char(','));
}

} // namespace netrove
