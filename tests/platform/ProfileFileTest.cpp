#include "platform/ProfileFile.h"

#include "fakes/Text.h"
#include "platform/IniReader.h"
#include "platform/TempTree.h"
#include "runtime/RunTimeError.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <functional>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace netrove {
namespace {

constexpr uid_t Nobody = 65534;

class ProfileFileTest : public testing::Test {
protected:
    [[nodiscard]] QString Path(const char* below = "a.ini") const { return tree.Path(Text(below)); }

    [[nodiscard]] QByteArray Content(const char* below = "a.ini") const {
        return tree.Content(below);
    }

    [[nodiscard]] QString Read(const char* section, const char* key) const {
        return ProfileFile(Path()).ReadIni(Text(section), Text(key), Text("(default)"));
    }

    [[nodiscard]] bool Write(const char* below, const QString& value = Text("2")) const {
        return ProfileFile(Path(below)).WriteIni(Text("A"), Text("k"), value);
    }

    void Permit(const char* below, int permissions) const {
        QFile::setPermissions(Path(below), QFile::Permissions(permissions));
    }

    TempTree tree;
};

/// Runs in a process of its own, whose rights and limits it may give up; gives back its result.
bool InChild(const std::function<bool()>& action) {
    const pid_t child = fork();
    if (child == 0)
        _exit(action() ? 1 : 0);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

TEST_F(ProfileFileTest, Reads) {
    EXPECT_EQ(Read("A", "k"), Text("(default)")) << "no file";
    const QString longest(ProfileFile::MaxValue, u'x');
    const struct {
        QByteArray content;
        const char* section;
        const char* key;
        QString expected;
    } cases[] = {
        {"[A]\r\nk=1\r\n[B]\r\nk=2", "b", "K", Text("2")},
        {"[A]\nk=1\nK=2\n[a]\nk=3\nl=4\n", "A", "k", Text("1")},
        {"[A]\nk=1\n[a]\nl=4\n", "A", "l", Text("(default)")},
        {"[A]\nk=\n", "A", "k", QString()},
        {"  [ A ] tail\n\tk\t=\tv w\t", "A", "k", Text("v w")},
        {"[A]\n; k=no\nk=\"  v \"\n", "A", "k", Text("  v ")},
        {"[A]\nk='w'\n", "A", "k", Text("w")},
        {"[A]\nk=\"x'\n", "A", "k", Text("\"x'")},
        {"[A]\nk=a=b;c\n", "A", "k", Text("a=b;c")},
        {"[A]\nk=\xDF \x80", "A", "k", Text("ß €")},
        {"[A]\nk\n", "A", "k", Text("(default)")},
        {"k=1\n[A]\n", "", "k", Text("(default)")},
        {"[A]\nk=\xC2\xA0v\xC2\xA0\n", "A", "k", Text("\u00A0v\u00A0")},
        {"\xEF\xBB\xBF[A]\nk=1\n", "A", "k", Text("1")},
        {"[A]\nk=" + longest.toUtf8() + "yz\n", "A", "k", longest},
        {"[A]\nk=" + longest.chopped(1).toUtf8() + "\xF0\x9D\x84\x9E\n", "A", "k",
         longest.chopped(1)},
    };
    for (const auto& [content, section, key, expected] : cases) {
        tree.File("a.ini", content);
        EXPECT_EQ(Read(section, key), expected) << content.toStdString();
        // What takes the whole file at once reads the same, but has no limit.
        const IniReader reader(content);
        const IniSection* found = reader.Find(Text(section));
        const bool isThere = found && found->Find(Text(key));
        const QString whole = isThere ? found->Value(Text(key)) : Text("(default)");
        EXPECT_EQ(whole.size() < 100 ? whole : whole.left(expected.size()), expected);
    }
}

TEST_F(ProfileFileTest, Writes) {
    const struct {
        QByteArray before;
        const char* section;
        const char* key;
        QString value;
        QByteArray after;
    } cases[] = {
        {"", "A", "k", Text("1"), "[A]\r\nk=1\r\n"},
        {"[A]\nk=1\n\n; end\n[B]\nk=1", "A", "l", Text("2"),
         "[A]\r\nk=1\r\nl=2\r\n\r\n; end\r\n[B]\r\nk=1\r\n"},
        {"; first\nodd\n[ a ] x\n K = 1 \nk=2\n", "A", "k", Text("3"),
         "; first\r\nodd\r\n[ a ] x\r\nk=3\r\nk=2\r\n"},
        {"[A]\nk=1\n[a]\nl=1\n", "a", "l", Text("2"), "[A]\r\nk=1\r\nl=2\r\n[a]\r\nl=1\r\n"},
        {"[A]\nk=1\nl=2\n K =3", "A", "k", QString(), "[A]\r\nl=2\r\n"},
        {"[A]\nk=1", "B", "l", QString(), "[A]\r\nk=1\r\n"},
        {"[A]\nk=1\n[B]\n; in\nk=1\n\n; above C\n[C]\nk=1\n[b]\nk=2", "B", "", QString(),
         "[A]\r\nk=1\r\n\r\n; above C\r\n[C]\r\nk=1\r\n"},
        {"[A]\nk=1\n[B", "B", "", QString(), "[A]\r\nk=1\r\n"},
        {"[A]\n\xE4=\xE4\n", "A", "k", Text("€"), "[A]\r\nä=ä\r\nk=€\r\n"},
        {"", "A", "k", Text("a\nb\r\n[B]"), "[A]\r\nk=a b  [B]\r\n"},
    };
    for (const auto& [before, section, key, value, after] : cases) {
        tree.File("a.ini", before);
        EXPECT_TRUE(ProfileFile(Path()).WriteIni(Text(section), Text(key), value));
        EXPECT_EQ(Content(), after) << before.toStdString();
    }
    const QByteArray before = Content();
    for (const auto& [section, key] :
         {std::pair("A]", "k"), {"A", "k=l"}, {"A", ";k"}, {"A", "[k"}, {"A\n[B", "k"}})
        EXPECT_FALSE(ProfileFile(Path()).WriteIni(Text(section), Text(key), Text("1"))) << key;
    EXPECT_EQ(Content(), before);
}

TEST_F(ProfileFileTest, ABatchReplacesTheFileOnceAtItsEnd) {
    tree.File("a.ini", "[A]\nk=1\n[B]\nk=1\n");
    ProfileFile file(Path());
    try {
        const ProfileFile::Batch outer(file);
        EXPECT_TRUE(file.WriteIni(Text("A"), QString(), QString()));
        EXPECT_EQ(file.ReadIni(Text("A"), Text("k"), Text("gone")), Text("gone"));
        {
            const ProfileFile::Batch inner(file);
            file.WriteIni(Text("A"), Text("l"), Text("2"));
        }
        EXPECT_EQ(Content(), "[A]\nk=1\n[B]\nk=1\n");
        throw std::runtime_error("a failure on the way");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(Content(), "[B]\r\nk=1\r\n[A]\r\nl=2\r\n");
}

TEST_F(ProfileFileTest, KeepsWhatItCannotReadOrReplace) {
    tree.Folder("a.ini");
    EXPECT_EQ(Read("A", "k"), Text("(default)"));
    EXPECT_FALSE(Write("a.ini")) << "a folder";
    EXPECT_FALSE(Write("missing/a.ini"));

    const QByteArray huge = "[A]\nk=1\n" + QByteArray(ProfileFile::MaxBytes, '\n');
    tree.File("huge.ini", huge);
    EXPECT_FALSE(Write("huge.ini"));
    EXPECT_EQ(Content("huge.ini"), huge);

    tree.File("real/a.ini", "[A]\nk=1\n");
    for (const auto& [link, target] :
         {std::pair("link.ini", "real/a.ini"), {"new.ini", "real/b.ini"}}) {
        tree.Link(link, target);
        EXPECT_TRUE(Write(link));
        EXPECT_TRUE(QFileInfo(Path(link)).isSymLink());
        EXPECT_EQ(Content(target), "[A]\r\nk=2\r\n");
    }
    EXPECT_EQ(QDir(Path("real")).entryList(QDir::Files).size(), 2);
}

TEST_F(ProfileFileTest, KeepsTheOldFileWhereNothingCanBeWritten) {
    const QByteArray before = "[A]\r\nk=1\r\n";
    const QString longer(5000, u'x');
    for (const char* file : {"full/a.ini", "closed/a.ini", "secret/a.ini"})
        tree.File(file, before);
    EXPECT_FALSE(InChild([&] {
        // The system's answer to a disk without room, but for the number.
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{.rlim_cur = 100, .rlim_max = 100};
        return setrlimit(RLIMIT_FSIZE, &limit) != 0 || Write("full/a.ini", longer);
    }));

    Permit("", 0x5555);
    Permit("closed", 0x5555);
    Permit("full", 0x7777);
    Permit("full/a.ini", 0x4444);
    Permit("secret", 0x7777);
    Permit("secret/a.ini", 0);
    EXPECT_FALSE(InChild([&] {
        // Root may write anywhere.
        if (getuid() == 0 && setuid(Nobody) != 0)
            return true;
        return Write("closed/a.ini", longer) || Write("full/a.ini", longer) ||
               Write("secret/a.ini", longer);
    }));
    Permit("secret/a.ini", 0x4444);
    Permit("closed", 0x7777);
    for (const char* file : {"full/a.ini", "closed/a.ini", "secret/a.ini"}) {
        EXPECT_EQ(Content(file), before) << file;
        const QDir folder = QFileInfo(Path(file)).dir();
        EXPECT_EQ(folder.entryList(QDir::Files | QDir::Hidden).size(), 1) << file;
    }
    Permit("", 0x7777);
}

TEST_F(ProfileFileTest, ReplacesNothingThatAwaitsItsCopy) {
    EXPECT_EQ(ProfileFile(Path()).KeepCopy(), QString()) << "no file";
    const QByteArray before = "[A]\r\nk=1\r\n;" + QByteArray(500, 'x');
    tree.File("a.ini", before);
    tree.File("a.ini.copy-1", "earlier");
    EXPECT_TRUE(InChild([&] {
        ProfileFile file(Path());
        signal(SIGXFSZ, SIG_IGN);
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit small{.rlim_cur = 100, .rlim_max = limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        const auto failure = FailureOf([&] { file.KeepCopy(); });
        setrlimit(RLIMIT_FSIZE, &limit);
        return failure && !file.WriteIni(Text("A"), Text("k"), Text("2")) && Content() == before &&
               file.KeepCopy() == Path("a.ini.copy-2") &&
               file.WriteIni(Text("A"), Text("k"), Text("2")) &&
               file.KeepCopy() == Path("a.ini.copy-2");
    }));
    EXPECT_EQ(Content("a.ini.copy-2"), before);
    EXPECT_EQ(Content("a.ini.copy-1"), "earlier");
}

/// Writes generation after generation of sixty keys.
void WriteForEver(const QString& path) {
    ProfileFile file(path);
    for (int generation = 1;; ++generation) {
        const ProfileFile::Batch batch(file);
        file.WriteIni(Text("List"), QString(), QString());
        for (int key = 0; key < 60; ++key)
            file.WriteIni(key < 30 ? Text("A") : Text("List"), QString::number(key),
                          QString::number(generation));
    }
}

TEST_F(ProfileFileTest, IsWholeWheneverItsWriterIsKilled) {
    tree.File("a.ini", "; kept\n[Foreign]\nk=1\n");
    for (int round = 0; round < 10; ++round) {
        const QByteArray before = Content();
        const pid_t writer = fork();
        if (writer == 0)
            WriteForEver(Path());
        while (Content() == before)
            usleep(100);
        // Somewhere in one of the next writes.
        const auto end = std::chrono::steady_clock::now() + std::chrono::microseconds(round * 211);
        while (std::chrono::steady_clock::now() < end) {
        }
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);

        const ProfileFile file(Path());
        const QString generation = Read("A", "0");
        EXPECT_GE(generation.toInt(), 1);
        for (int key = 1; key < 60; ++key) {
            ASSERT_EQ(file.ReadIni(key < 30 ? Text("A") : Text("List"), QString::number(key),
                                   Text("missing")),
                      generation);
        }
        ASSERT_TRUE(Content().startsWith("; kept\r\n[Foreign]\r\nk=1\r\n[A]\r\n"));
    }
}

} // namespace
} // namespace netrove
