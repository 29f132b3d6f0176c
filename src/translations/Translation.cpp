#include "translations/Translation.h"

#include "runtime/SourceText.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace netrove {
namespace {

/// The name of the locale for messages, from the first variable set, in the order of POSIX.
QByteArray MessagesLocale() {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (const QByteArray value = qgetenv(variable); !value.isEmpty())
            return value;
    }
    return {};
}

} // namespace

QStringList UserLanguages() {
    const QByteArray locale = MessagesLocale();
    if (locale == "C" || locale == "POSIX")
        return {};
    return QLocale::system().uiLanguages();
}

Translation::Translation(const QStringList& languages) {
    for (const QString& language : languages) {
        const QLocale locale(language);
        if (locale.language() == QLocale::English)
            return;
        if (!own_.load(u"netrove_" + locale.name(), u":/translations"_s))
            continue;
        QCoreApplication::installTranslator(&own_);
        // If Qt's translation isn't installed, its controls stay English.
        if (qt_.load(u"qtbase_" + locale.name(),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            QCoreApplication::installTranslator(&qt_);
        return;
    }
}

} // namespace netrove
