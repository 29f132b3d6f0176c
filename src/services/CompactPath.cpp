#include "services/CompactPath.h"

#include "runtime/SourceText.h"

#include <algorithm>
#include <optional>

namespace netrove {
namespace {

/// The text's first `length` UTF-16 units, one fewer if that would cut a character in two.
QString Prefix(const QString& text, qsizetype length) {
    if (length > 0 && length < text.size() && text[length - 1].isHighSurrogate())
        --length;
    return text.left(length);
}

/// The longest beginning of `text` that fits, with `ending` behind it; nothing if not even `ending`
/// fits.
std::optional<QString> FitWith(const QString& text, const QString& ending, int width,
                               const TextWidth& textWidth) {
    const auto fits = [&](qsizetype length) {
        return textWidth(Prefix(text, length) + ending) <= width;
    };
    if (!fits(0))
        return std::nullopt;
    qsizetype fitting = 0;
    qsizetype tooLong = text.size() + 1;
    while (tooLong - fitting > 1) {
        const qsizetype middle = fitting + (tooLong - fitting) / 2;
        (fits(middle) ? fitting : tooLong) = middle;
    }
    return QString(Prefix(text, fitting) + ending);
}

} // namespace

QString CompactPath(const QString& path, int pixels, const TextWidth& textWidth) {
    if (textWidth(path) <= pixels)
        return path;
    const QString dots = u"..."_s;
    // The closing "\" of a folder belongs to its name.
    const qsizetype cut = std::max<qsizetype>(path.lastIndexOf(u'\\', -2), 0);
    const QString last = path.mid(cut);
    if (cut > 0) {
        if (const auto text = FitWith(path.left(cut), dots + last, pixels, textWidth))
            return *text;
    }
    const QString name = last.startsWith(u'\\') ? last.mid(1) : last;
    if (const auto text = FitWith(name, dots, pixels, textWidth))
        return *text;
    return FitWith(dots, QString(), pixels, textWidth).value_or(QString());
}

} // namespace netrove
