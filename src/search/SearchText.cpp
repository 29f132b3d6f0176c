#include "search/SearchText.h"

#include "runtime/Text.h"

#include <QStringList>

namespace netrove {

QString SearchText::Strip(const QString& text) {
    QStringList patterns;
    for (const QString& piece : text.split(u',')) {
        if (const QString pattern = Trim(piece); !pattern.isEmpty())
            patterns.append(pattern);
    }
    return patterns.join(u',');
}

QString SearchText::EncloseInAsterisks(const QString& text) {
    QStringList patterns = text.split(u',');
    for (QString& pattern : patterns)
        pattern = u'*' + pattern + u'*';
    return patterns.join(u',');
}

} // namespace netrove
