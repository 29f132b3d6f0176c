#include "fakes/DesktopFakes.h"
#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "mainwindow/services/NetworkNodes.h"
#include "mainwindow/services/ShellServices.h"
#include "mainwindow/services/WinVer.h"
#include "runtime/RunTimeError.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

/// Keeps the verbs too, and lets a program be chosen.
class VerbShell : public RecordedShell {
public:
    bool chosen = false;
    ShellVerb verb = ShellVerb::Default;

    int Execute(const QString& file, ShellVerb with) override {
        verb = with;
        return RecordedShell::Execute(file, with);
    }
    bool OpenWith(const QString& /*file*/) override { return chosen; }
};

/// Marks errors by a "!".
class MarkedDialogs : public RecordedDialogs {
    MessageAnswer Message(MessageIcon icon, const QString& text, const QString& title,
                          MessageButtons buttons) override {
        const bool isError = icon == MessageIcon::Critical;
        return RecordedDialogs::Message(icon, text, isError ? u'!' + title : title, buttons);
    }
};

class ShellTest : public testing::Test {
protected:
    VerbShell shell;
    MarkedDialogs dialogs;
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

    shell.chosen = false;
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
        EXPECT_EQ(dialogs.Shown.last(), Text("!Shell execute failed...: file\r\n") + Text(message));
    }
}

TEST_F(ShellTest, OpensFoldersAndMail) {
    shell.Result = Shell::AccessDenied;
    EXPECT_EQ(services.OpenFolder(Text("\\\\S\\D\\"), Text("explore")), Shell::AccessDenied);
    EXPECT_EQ(shell.verb, ShellVerb::Open);
    EXPECT_TRUE(dialogs.Shown.isEmpty()) << "the callers tell it";
    services.OpenMailLink(Text("a@example.org"));
    EXPECT_EQ(shell.Opened.last(), Text("mailto:a@example.org"));
    EXPECT_EQ(dialogs.Shown,
              QStringList{Text("Mail Program Not Found...: Could not open your mail program!")});
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
    QString user;
    QString computer;
    QString OSVersion() const override { return QString(); }
    QString UserName() const override { return user; }
    QString ComputerName() const override { return computer; }
};

TEST(WinVer, AnswersOfTheSystem) {
    NamedSystem system;
    EXPECT_EQ(ComputerUNCName(system), Text("\\\\"));
    system.computer = Text(" media ");
    EXPECT_EQ(ComputerUNCName(system), Text("\\\\MEDIA"));
    for (const qsizetype length : {24, 25}) {
        system.user = QString(length, u'x');
        EXPECT_EQ(GetUserNameText(system), length == 24 ? system.user : QString());
    }
    EXPECT_EQ(GetOSInfo(system).Version, Text("0.0.0"));
}

} // namespace
} // namespace netrove
