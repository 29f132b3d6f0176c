#include "redirector/UncPath.h"

#include "runtime/Names.h"
#include "runtime/SourceText.h"

#include <algorithm>

namespace netrove {

std::optional<UncPath> UncPath::Parse(const QString& text) {
    if (!text.startsWith("\\\\"_L1))
        return std::nullopt;
    QStringList parts = text.mid(2).split(u'\\');
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
    QString text = "\\\\"_L1 + server_;
    if (!share_.isEmpty())
        text += u'\\' + share_;
    for (const QString& element : elements_)
        text += u'\\' + element;
    return text;
}

} // namespace netrove
