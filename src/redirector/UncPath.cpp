#include "redirector/UncPath.h"

namespace netrove {
namespace {

bool IsSafeElement(const QString& element) {
    return !element.isEmpty() && element != QLatin1String(".") && element != QLatin1String("..") &&
           !element.contains(QLatin1Char('/')) && !element.contains(QChar(u'\0'));
}

} // namespace

std::optional<UncPath> UncPath::Parse(const QString& text) {
    if (!text.startsWith(QLatin1String("\\\\")))
        return std::nullopt;
    QStringList parts = text.mid(2).split(QLatin1Char('\\'));
    if (parts.size() > 1 && parts.last().isEmpty())
        parts.removeLast();
    for (const QString& part : parts) {
        if (!IsSafeElement(part))
            return std::nullopt;
    }
    UncPath path;
    path.server_ = parts.takeFirst();
    if (!parts.isEmpty())
        path.share_ = parts.takeFirst();
    path.elements_ = parts;
    return path;
}

bool UncPath::IsName(const QString& text) {
    return IsSafeElement(text) && !text.contains(QLatin1Char('\\')) &&
           !text.contains(QLatin1Char('|'));
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
