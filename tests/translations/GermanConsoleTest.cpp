#include "fakes/Text.h"
#include "translations/Translation.h"

#include <QProcess>
#include <gtest/gtest.h>

namespace netrove {
namespace {

constexpr int Milliseconds = 30'000;

struct Outcome {
    QString out;
    QString err;
};

/// Runs a built program as a user of this locale and these languages. The locale needn't be
/// installed.
Outcome RunProgram(const char* program, const char* locale, const char* languages,
                   const QStringList& arguments) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(Text("LC_ALL"), Text(locale));
    environment.insert(Text("LANGUAGE"), Text(languages));
    process.setProcessEnvironment(environment);
    process.start(Text(NETROVE_BIN "/") + Text(program), arguments);
    EXPECT_TRUE(process.waitForFinished(Milliseconds));
    return {.out = QString::fromUtf8(process.readAllStandardOutput()),
            .err = QString::fromUtf8(process.readAllStandardError())};
}

class GermanConsole : public testing::Test {
protected:
    void SetUp() override {
        if (!Translation({Text("de")}).IsLoaded())
            GTEST_SKIP() << "built without lrelease";
    }
};

TEST_F(GermanConsole, TheLanguageIsTheUsersFirstOneThatThereIs) {
    const struct {
        const char* locale;
        const char* languages;
        bool isGerman;
    } cases[] = {
        {"de_DE.UTF-8", "", true},  {"de_AT.ISO-8859-1", "", true},
        {"C.UTF-8", "de", true},    {"en_GB.UTF-8", "fr:de_CH:en", true},
        {"C.UTF-8", "", false},     {"C", "de", false},
        {"fr_FR.UTF-8", "", false}, {"de_DE.UTF-8", "en_GB:de", false},
    };
    for (const auto& [locale, languages, isGerman] : cases) {
        for (const char* program : {"netrove", "netrove-find"})
            EXPECT_EQ(
                RunProgram(program, locale, languages, {Text("--help")}).out.section(u' ', 0, 0),
                isGerman ? Text("Aufruf:") : Text("Usage:"))
                << program << ' ' << locale << ' ' << languages;
    }
}

TEST_F(GermanConsole, MessagesAreTranslatedAndWhatIsFoundIsNot) {
    const QStringList search{Text("--from"), Text("Sample Network"), Text("--max"),
                             Text("20"),     Text("--details"),      Text("*.mp3,*.txt")};
    const Outcome german = RunProgram("netrove-find", "C.UTF-8", "de", search);
    EXPECT_EQ(german.out.count(u'\n'), 20);
    EXPECT_EQ(german.out, RunProgram("netrove-find", "C.UTF-8", "", search).out);
    EXPECT_TRUE(german.err.startsWith(Text("Returned 20 files in "))) << german.err.toStdString();
    const QStringList wrong{Text("--exclude=a:drücker"), Text("%1")};
    EXPECT_EQ(RunProgram("netrove-find", "de_DE.UTF-8", "", wrong).err.toStdString(),
              "netrove-find: --exclude kennt den Typ 'drücker' nicht (folder, workstation, "
              "workgroup, network)\n"
              "'netrove-find --help' gibt weitere Informationen.\n");
}

} // namespace
} // namespace netrove
