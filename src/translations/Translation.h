#pragma once

#include <QStringList>
#include <QTranslator>

namespace netrove {

/// The languages that the user wants to read, the most wanted first, as LANGUAGE and the locale's
/// variables name them: "de-AT". None where the locale is the one of scripts, "C".
[[nodiscard]] QStringList UserLanguages();

/// Translates the program's own texts, and those of Qt's own controls, as long as it lives. Texts
/// without a translation stay English; numbers, dates and what is stored don't depend on it.
class Translation {
public:
    /// Takes the first of the languages that there is; English is always there. To be made once
    /// there is an application.
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
