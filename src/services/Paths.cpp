#include "services/Paths.h"

#include "runtime/Text.h"

#include <QDir>

#include <algorithm>

namespace netrove {

QString EnsureSuffix(const QString& text, const QString& suffix) {
    return text.endsWith(suffix) ? text : text + suffix;
}

QString LocalPath(const QString& text) {
    const bool isInHome = text == u"~" || text.startsWith(u"~/");
    const QString path = isInHome ? QDir::homePath() + text.mid(1) : text;
    return path.startsWith(u'/') ? path : QString();
}

QString PathIn(const QString& folder, const QString& name) {
    return EnsureSuffix(folder, QDir::separator()) + name;
}

QString FileExtension(const QString& path) {
    const qsizetype dot = path.lastIndexOf(u'.');
    if (dot < 0 || dot < path.lastIndexOf(u'\\'))
        return QString();
    return UpperCase(QStringView(path).mid(dot + 1));
}

bool HasIllegalNameChars(const QString& text) {
    constexpr QStringView illegal = u"/\\:*?\"<>|";
    return std::any_of(text.begin(), text.end(),
                       [illegal](QChar character) { return illegal.contains(character); });
}

} // namespace netrove
