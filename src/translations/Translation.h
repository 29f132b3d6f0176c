#pragma once

#include <QStringList>
#include <QTranslator>

namespace netrove {

/// The languages that the user wants to read, the preferred one first, as LANGUAGE and the locale's
/// variables name them: "de-AT". None if the locale is "C" or "POSIX", as in scripts.
[[nodiscard]] QStringList UserLanguages();

/// While it exists, translates the program's own texts and those of Qt's controls. Texts without a
/// translation stay English; numbers, dates and what is stored don't depend on it.
class Translation {
public:
    /// Takes the first of the languages that there is a translation for; English needs none. To be
    /// made when there is an application object.
    explicit Translation(const QStringList& languages = UserLanguages());
    Translation(const Translation&) = delete;
    Translation& operator=(const Translation&) = delete;
    ~Translation() = default;

    /// Whether the texts are in another language than English.
    [[nodiscard]] bool IsLoaded() const { return !own_.isEmpty(); }

private:
    QTranslator own_;
    QTranslator qt_;
};

} // namespace netrove
