#include "redirector/UncPath.h"

#include "runtime/Names.h"

#include <algorithm>

namespace netrove {

std::optional<UncPath> UncPath::Parse(const QString& text) {
    if (!text.startsWith(QLatin1String("\\\\")))
        return std::nullopt;
    QStringList parts = text.mid(2).split(QLatin1Char('\\'));
    if (parts.size() > 1 && parts.last().isEmpty())
        parts.removeLast();
    if (!std::ranges::all_of(parts, IsPathElement))
        return std::nullopt;
    UncPath path;
    path.server_ = parts.takeFirst();
    if (!parts.isEmpty())
        path.share_ = parts.takeFirst();
    path.elements_ = parts;
    return path;
}

QString UncPath::Text() const {
    QString text = QLatin1String("\\\\") + server_;
    if (!share_.isEmpty())
        text += QLatin1Char('\\') + share_;
    for (const QString& element : elements_)
        text += QLatin1Char('\\') + element;
    return text;
}

} // namespace netrove
