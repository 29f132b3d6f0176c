#include "fakes/DesktopFakes.h"
#include "fakes/MemoryNetwork.h"
#include "fakes/OneFile.h"
#include "fakes/Text.h"
#include "runtime/RunTimeError.h"
#include "services/CompactPath.h"
#include "services/FileDetails.h"
#include "services/NetworkNodes.h"
#include "services/Paths.h"
#include "services/ShellServices.h"
#include "services/WinVer.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

/// Keeps the verbs too, and lets a program be chosen.
class VerbShell : public RecordedShell {
public:
    bool chosen = false;
    ShellVerb verb = ShellVerb::Default;

    int Execute(const QString& file, ShellVerb with, const Failed& failed) override {
        verb = with;
        return RecordedShell::Execute(file, with, failed);
    }
    bool OpenWith(const QString& /*file*/, const Failed& /*failed*/) override { return chosen; }
};

class ShellTest : public testing::Test {
protected:
    VerbShell shell;
    RecordedDialogs dialogs;
    ShellServices services{shell, dialogs};
};

TEST_F(ShellTest, RunsAndTellsFailures) {
    EXPECT_EQ(services.ShellRun(Text("file"), Text("open")), -1);
    EXPECT_EQ(shell.verb, ShellVerb::Default) << "an unknown verb";
    shell.Result = 33;
    EXPECT_EQ(services.ShellRun(Text("file"), Text("Explore")), -1);
    EXPECT_EQ(shell.verb, ShellVerb::Explore);
    shell.Result = Shell::NoAssociation;
    shell.chosen = true;
    EXPECT_EQ(services.ShellRun(Text("file")), -1);
    EXPECT_TRUE(dialogs.Shown.isEmpty());

    // The opener may say only later that it can't.
    shell.Result = Shell::Success;
    EXPECT_EQ(services.ShellRun(Text("file")), -1);
    shell.FailLater();
    EXPECT_EQ(dialogs.TakeWhole(), "") << "a program was chosen";
    shell.chosen = false;
    shell.FailLater();
    EXPECT_EQ(dialogs.TakeWhole(), "critical: Shell execute failed...: file\r\n");
    const struct {
        int code;
        int result;
        const char* message;
    } cases[] = {{0, 0, "Error: Out of Memory/Resources. Couldn't Execute!"},
                 {2, 2, "Error: File not found.  Couldn't Execute!"},
                 {3, 3, "Error: Path not found. Couldn't Execute!"},
                 {11, 11, "Error:  Bad File Format. Couldn't Execute!"},
                 {31, 0, ""}, // and nothing was chosen
                 {32, 32, ""}};
    for (const auto& [code, result, message] : cases) {
        shell.Result = code;
        EXPECT_EQ(services.ShellRun(Text("file")), result);
        EXPECT_EQ(dialogs.TakeWhole(),
                  std::string("critical: Shell execute failed...: file\r\n") + message);
    }
}

TEST_F(ShellTest, OpensFoldersAndMail) {
    shell.Result = Shell::AccessDenied;
    EXPECT_EQ(services.OpenFolder(Text("\\\\S\\D\\"), Text("explore")), Shell::AccessDenied);
    EXPECT_EQ(shell.verb, ShellVerb::Open);
    EXPECT_TRUE(dialogs.Shown.isEmpty()) << "the callers tell it";
    shell.FailLater();
    EXPECT_EQ(dialogs.TakeWhole(), "critical: Shell execute failed...: \\\\S\\D\\\r\n")
        << "whom the callers took for opened";
    services.OpenMailLink(Text("a@example.org"));
    EXPECT_EQ(shell.Opened.last(), Text("mailto:a@example.org"));
    EXPECT_EQ(dialogs.WholeBoxes(),
              "exclamation: Mail Program Not Found...: Could not open your mail program!");
}

TEST(NetworkNodes, FoundByAPathOfNames) {
    MemoryNetwork network;
    network.AddNode(QString(), NetEnum::DisplayNetwork, Text("Net"));
    network.AddNode(Text("Net"), NetEnum::DisplayDomain, Text("WG"));
    network.AddNode(Text("WG"), NetEnum::DisplayServer, Text("\\\\S"));
    const auto name = [&network](const char* path) {
        const auto node = FindNetNode(Text(path), network);
        return node ? node->RemoteName() : Text("nothing");
    };
    EXPECT_EQ(name("Net|wg|\\\\s|"), Text("\\\\S"));
    EXPECT_EQ(name("Net|"), Text("Net"));
    EXPECT_EQ(name(""), QString()) << "the root";
    EXPECT_EQ(name("Net|Other|\\\\S|"), Text("nothing"));
    EXPECT_EQ(name("Net||"), Text("nothing"));
    EXPECT_EQ(name("Net|WG"), Text("Net")) << "what no bar follows doesn't count";
    EXPECT_EQ(name("microsoft windows network|WG|\\\\S|"), Text("\\\\S"))
        << "stands for any provider";
    network.OnCall = [](const QString&) { throw RunTimeError(ErrorNumber::DeviceIOError); };
    EXPECT_EQ(name("Net|"), Text("nothing"));
}

class NamedSystem : public TestSystem {
public:
    QString name;
    QString OSVersion() const override { return QString(); }
    QString UserName() const override { return name; }
    QString ComputerName() const override { return name; }
};

TEST(WinVer, AnswersOfTheSystem) {
    NamedSystem system;
    EXPECT_EQ(ComputerUNCName(system), Text("\\\\"));
    system.name = Text(" media ");
    EXPECT_EQ(ComputerUNCName(system), Text("\\\\MEDIA"));
    for (const qsizetype length : {24, 25}) {
        system.name = QString(length, u'x');
        EXPECT_EQ(GetUserNameText(system), length == 24 ? system.name : QString());
    }
    EXPECT_EQ(GetOSInfo(system).Version, Text("0.0.0"));
}

TEST(Paths, NamesOfFilesAndNodes) {
    EXPECT_EQ(FileExtension(Text("\\\\S\\D.OLD\\readme")), QString());
    for (const char* name : {"\\\\MEDIA", "a/b", "a:", "*", "?", "\"", "<", ">", "|"})
        EXPECT_TRUE(HasIllegalNameChars(Text(name))) << name;
    for (const char* name : {"", "MEDIA-1", "My net & more"})
        EXPECT_FALSE(HasIllegalNameChars(Text(name))) << name;
}

TEST(Paths, CompactedToAWidth) {
    const auto columns = [](const QString& text) { return int(text.size()); }; // of a terminal
    const struct {
        const char* path;
        int width;
        const char* compact;
    } cases[] = {
        {"\\\\SERVER\\SHARE\\OLD\\FILE", 23, "\\\\SERVER\\SHARE\\OLD\\FILE"},
        {"\\\\SERVER\\SHARE\\OLDER\\FILE", 23, "\\\\SERVER\\SHARE\\...\\FILE"},
        {"\\\\SERVER\\SHARE\\OLDER\\FILE", 12, "\\\\SE...\\FILE"},
        {"\\\\SERVER\\SHARE\\OLDER\\FILE", 8, "...\\FILE"},
        {"\\\\SERVER\\SHARE\\OLDER\\FILE", 7, "FILE..."},
        {"\\\\SERVER\\SHARE\\FOLDER\\", 19, "\\\\SERVER...\\FOLDER\\"},
        {"Microsoft Windows Network", 12, "Microsoft..."},
        {"plain", 2, ".."},
        {"", 0, ""},
    };
    for (const auto& [path, width, compact] : cases)
        EXPECT_EQ(CompactPath(Text(path), width, columns), Text(compact)) << path << ' ' << width;

    const QString notes = Text("\\\\S\\🎵🎵🎵🎵\\🎵🎵🎵🎵🎵🎵");
    for (int width = 0; width <= columns(notes); ++width) {
        const QString compact = CompactPath(notes, width, columns);
        EXPECT_LE(columns(compact), width);
        EXPECT_TRUE(compact.isValidUtf16()) << "half a character at " << width;
    }
}

TEST(FileDetails, TextsOfAFile) {
    OneFile file;
    file.length = 1'500'000;
    file.attributes = 1 | 2 | 4 | 16 | 32 | 0x800;
    const FileDetails details(Text("\\\\S\\D\\OLD\\a.b.TXT"), file, Settings());
    EXPECT_EQ(details.Folder, Text("\\\\S\\D\\OLD\\"));
    EXPECT_EQ(details.FileName, Text("a.b.TXT"));
    EXPECT_EQ(details.DateText, Text("02/03/20"));
    EXPECT_EQ(details.DateKey, Text("20200203040506"));
    EXPECT_EQ(details.SizeText, Text("1.4305"));
    EXPECT_EQ(details.SizeKey, Text("0001.4305000000"));
    EXPECT_EQ(details.AttrText, Text("RHSA"));

    const FileDetails bare(Text("README"), file, Settings());
    EXPECT_EQ(bare.Folder, Text("\\"));
    EXPECT_TRUE(bare.FileName.isEmpty());

    const FileDetails gone(Text("\\\\S\\D\\gone"), file, Settings());
    EXPECT_TRUE(gone.Folder.isEmpty() && gone.FileName.isEmpty() && gone.DateText.isEmpty() &&
                gone.DateKey.isEmpty() && gone.AttrText.isEmpty());
    EXPECT_EQ(gone.SizeText, Text("0"));
    EXPECT_EQ(gone.SizeKey, Text("0"));
}

TEST(FileDetails, SizesByTheSettings) {
    const struct {
        qint64 bytes;
        qint16 format;
        qint16 decimals;
        const char* text;
        const char* key;
    } cases[] = {
        {0, 1, 2, "0.00", "0000.0000000000"},
        {1'500'000, 7, 0, "1", "0001.0000000000"}, // any other format is megabytes
        {1, 2, 4, "0.0010", "0000000.0010000000"},
        {1536, 2, 0, "2", "0000002.0000000000"},
        {5'000'000'000, 3, 4, "5000000000", "5000000000"}, // beyond 32 bits
        // Longer than the key is wide: the letter sorts them behind all that fit.
        {12'884'901'888, 1, 2, "12288.00", "A12288.0000000000"},
        {20'000'000'000, 3, 0, "20000000000", "A20000000000"},
    };
    OneFile file;
    Settings settings;
    for (const auto& [bytes, format, decimals, text, key] : cases) {
        file.length = bytes;
        settings.SizeFormat = format;
        settings.SizeNumDec = decimals;
        const FileDetails details(Text("\\\\S\\D\\f"), file, settings);
        EXPECT_EQ(details.SizeText, Text(text));
        EXPECT_EQ(details.SizeKey, Text(key));
    }
}

} // namespace
} // namespace netrove
