#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "mainwindow/services/NetworkNodes.h"
#include "mainwindow/services/ShellServices.h"
#include "mainwindow/services/WinVer.h"
#include "runtime/RunTimeError.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

class TestShell : public Shell {
public:
    int code = Success;
    bool chosen = false;
    QString executed;
    ShellVerb verb = ShellVerb::Default;

    int Execute(const QString& file, ShellVerb with) override {
        executed = file;
        verb = with;
        return code;
    }
    bool OpenWith(const QString& /*file*/) override { return chosen; }
    std::optional<QUrl> Address(const QString& /*file*/) override { return std::nullopt; }
};

class TestDialogs : public Dialogs {
public:
    QStringList boxes;

    MessageAnswer Message(MessageIcon icon, const QString& text, const QString& title,
                          MessageButtons /*buttons*/) override {
        boxes.append((icon == MessageIcon::Critical ? Text("!") : Text("?")) + title + Text("|") +
                     text);
        return MessageAnswer::Ok;
    }
    QString InputBox(const QString& /*prompt*/, const QString& /*title*/) override {
        return QString();
    }
    std::optional<QString> OpenFile(const FileDialogSetup& /*setup*/) override {
        return std::nullopt;
    }
    std::optional<QString> SaveFile(const FileDialogSetup& /*setup*/) override {
        return std::nullopt;
    }
    std::optional<QString> ChooseFolder(const QString& /*title*/, bool /*network*/) override {
        return std::nullopt;
    }
    std::optional<QString> ChooseComputer(const QString& /*title*/) override {
        return std::nullopt;
    }
    std::optional<ChosenFont> ChooseFont(const ChosenFont& /*font*/) override {
        return std::nullopt;
    }
};

TEST(ShellServices, RunsAndTellsFailures) {
    TestShell shell;
    TestDialogs dialogs;
    ShellServices services(shell, dialogs);
    EXPECT_EQ(services.ShellRun(Text("file"), Text("open")), -1);
    EXPECT_EQ(shell.verb, ShellVerb::Default) << "an unknown verb";
    shell.code = 33;
    EXPECT_EQ(services.ShellRun(Text("file"), Text("Explore")), -1);
    EXPECT_EQ(shell.verb, ShellVerb::Explore);
    EXPECT_TRUE(dialogs.boxes.isEmpty());

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
        shell.code = code;
        dialogs.boxes.clear();
        EXPECT_EQ(services.ShellRun(Text("file")), result);
        EXPECT_EQ(dialogs.boxes,
                  QStringList{Text("!Shell execute failed...|file\r\n") + Text(message)});
    }
    shell.code = 31;
    shell.chosen = true;
    dialogs.boxes.clear();
    EXPECT_EQ(services.ShellRun(Text("file")), -1);
    EXPECT_TRUE(dialogs.boxes.isEmpty());
}

TEST(ShellServices, OpensFoldersAndMail) {
    TestShell shell;
    TestDialogs dialogs;
    ShellServices services(shell, dialogs);
    shell.code = 5;
    EXPECT_EQ(services.OpenFolder(Text("\\\\S\\D\\"), Text("explore")), 5);
    EXPECT_EQ(shell.verb, ShellVerb::Open);
    EXPECT_TRUE(dialogs.boxes.isEmpty()) << "the callers tell it";
    services.OpenMailLink(Text("a@example.org"));
    EXPECT_EQ(shell.executed, Text("mailto:a@example.org"));
    EXPECT_EQ(dialogs.boxes,
              QStringList{Text("?Mail Program Not Found...|Could not open your mail program!")});
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

class TestSystem : public SystemInformation {
public:
    QString user;
    QString computer;
    QString OSName() const override { return Text("An OS"); }
    QString OSVersion() const override { return QString(); }
    QString UserName() const override { return user; }
    QString ComputerName() const override { return computer; }
};

TEST(WinVer, AnswersOfTheSystem) {
    TestSystem system;
    EXPECT_EQ(ComputerUNCName(system), Text("\\\\"));
    system.computer = Text(" media ");
    EXPECT_EQ(ComputerUNCName(system), Text("\\\\MEDIA"));
    system.user = QString(24, u'x');
    EXPECT_EQ(GetUserNameText(system), system.user);
    system.user += u'x';
    EXPECT_EQ(GetUserNameText(system), QString());
    const OSInfo info = GetOSInfo(system);
    EXPECT_EQ(info.Name, Text("An OS"));
    EXPECT_EQ(info.Version, Text("0.0.0"));
    EXPECT_TRUE(info.IsNT && !info.IsXP);
}

} // namespace
} // namespace netrove
