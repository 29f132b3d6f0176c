#include "fakes/Text.h"
#include "translations/Translation.h"

#include <QProcess>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// What a built program prints for a user of this locale and these languages. The locale needn't
/// be installed.
QString Printed(const char* program, const char* locale, const char* languages,
                const QStringList& arguments) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(Text("LC_ALL"), Text(locale));
    environment.insert(Text("LANGUAGE"), Text(languages));
    process.setProcessEnvironment(environment);
    process.start(Text(NETROVE_BIN "/") + Text(program), arguments);
    EXPECT_TRUE(process.waitForFinished());
    return QString::fromUtf8(process.readAllStandardOutput());
}

TEST(GermanConsole, TheLanguageIsTheUsersFirstOneThatThereIs) {
    if (!Translation({Text("de")}).IsLoaded())
        GTEST_SKIP() << "built without lrelease";
    const struct {
        const char* program;
        const char* locale;
        const char* languages;
        bool isGerman;
    } cases[] = {
        {"netrove", "de_AT.ISO-8859-1", "", true},
        {"netrove-find", "en_GB.UTF-8", "fr:de_CH:en", true},
        {"netrove-find", "C", "de", false},
        {"netrove-find", "de_DE.UTF-8", "en_GB:de", false},
    };
    for (const auto& [program, locale, languages, isGerman] : cases)
        EXPECT_EQ(Printed(program, locale, languages, {Text("--help")}).section(u' ', 0, 0),
                  isGerman ? Text("Aufruf:") : Text("Usage:"))
            << program << ' ' << locale << ' ' << languages;

    const QStringList search{Text("--from=Sample Network"), Text("--details"), Text("*.txt")};
    const QString found = Printed("netrove-find", "C.UTF-8", "de", search);
    EXPECT_FALSE(found.isEmpty());
    EXPECT_EQ(found, Printed("netrove-find", "C.UTF-8", "", search)) << "isn't translated";
}

} // namespace
} // namespace netrove
