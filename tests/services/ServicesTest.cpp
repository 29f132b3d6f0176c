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

#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(ShellServicesTest, RunsAndTellsFailures) {
    RecordedShell shell;
    RecordedDialogs dialogs;
    ShellServices services{shell, dialogs};
    const std::string told = "critical: Shell execute failed...: ";
    const struct {
        int code;
        const char* word;
        ShellVerb verb;
        int result;
        const char* message; ///< null for none
    } cases[] = {
        {Shell::Success, "open", ShellVerb::Default, -1, nullptr}, // an unknown verb
        {33, "Explore", ShellVerb::Explore, -1, nullptr},
        {0, "", ShellVerb::Default, 0, "Error: Out of Memory/Resources. Couldn't Execute!"},
        {2, "", ShellVerb::Default, 2, "Error: File not found.  Couldn't Execute!"},
        {3, "", ShellVerb::Default, 3, "Error: Path not found. Couldn't Execute!"},
        {11, "", ShellVerb::Default, 11, "Error:  Bad File Format. Couldn't Execute!"},
        {Shell::NoAssociation, "", ShellVerb::Default, 0, ""}, // and nothing was chosen
        {32, "", ShellVerb::Default, 32, ""}};
    for (const auto& [code, word, verb, result, message] : cases) {
        shell.Result = code;
        EXPECT_EQ(services.ShellRun(Text("file"), Text(word)), result) << code;
        EXPECT_EQ(shell.Verb, verb) << code;
        EXPECT_EQ(dialogs.TakeWhole(), message ? told + "file\r\n" + message : "");
    }
    for (const bool chosen : {true, false}) { // the opener may say only later that it can't
        shell.IsChosen = chosen;
        shell.Result = chosen ? Shell::NoAssociation : Shell::Success;
        EXPECT_EQ(services.ShellRun(Text("file")), -1);
        shell.FailLater();
        EXPECT_EQ(dialogs.TakeWhole(), chosen ? "" : told + "file\r\n");
    }
    shell.Result = Shell::AccessDenied;
    EXPECT_EQ(services.OpenFolder(Text("\\\\S\\D\\"), Text("explore")), Shell::AccessDenied);
    EXPECT_EQ(shell.Verb, ShellVerb::Open);
    EXPECT_EQ(dialogs.Boxes(), "") << "the callers tell it";
    shell.FailLater();
    EXPECT_EQ(dialogs.TakeWhole(), told + "\\\\S\\D\\\r\n") << "whom the callers took for opened";
    services.OpenMailLink(Text("a@example.org"));
    EXPECT_EQ(shell.Opened.last(), Text("mailto:a@example.org"));
    EXPECT_EQ(dialogs.WholeBoxes(),
              "exclamation: Mail Program Not Found...: Could not open your mail program!");
}

TEST(NetworkNodes, FoundByAPathOfNames) {
    MemoryNetwork network;
    network.AddBranch({"Net", "WG", "\\\\S"});
    const auto name = [&network](const char* path) {
        const auto node = FindNetNode(Text(path), network);
        return node ? node->RemoteName() : Text("nothing");
    };
    for (const auto& [path, found] : TextPairs{{"Net|wg|\\\\s|", "\\\\S"},
                                               {"Net|", "Net"},
                                               {"", ""}, // the root
                                               {"Net|Other|\\\\S|", "nothing"},
                                               {"Net||", "nothing"},
                                               {"Net|WG", "Net"}, // without its bar
                                               {"microsoft windows network|WG|\\\\S|", "\\\\S"}})
        EXPECT_EQ(name(path), Text(found)) << path;
    network.OnCall = [](const QString&) { throw RunTimeError(ErrorNumber::DeviceIOError); };
    EXPECT_EQ(name("Net|"), Text("nothing"));
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
    const QStringList texts{details.Folder,   details.FileName, details.DateText, details.DateKey,
                            details.SizeText, details.SizeKey,  details.AttrText};
    EXPECT_EQ(texts, Texts({"\\\\S\\D\\OLD\\", "a.b.TXT", "02/03/20", "20200203040506", "1.4305",
                            "0001.4305000000", "RHSA"}));

    const FileDetails gone(Text("\\\\S\\D\\gone"), file, Settings());
    EXPECT_EQ(gone.Folder + gone.FileName + gone.DateText + gone.DateKey + gone.AttrText,
              QString());
    EXPECT_EQ(gone.SizeText + gone.SizeKey, Text("00"));
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
