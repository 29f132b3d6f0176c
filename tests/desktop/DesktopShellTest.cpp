#include "desktop/DesktopShell.h"

#include "desktop/DesktopAddress.h"
#include "desktop/SessionBus.h"
#include "fakes/Files.h"
#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <dbus/dbus.h>
#include <sys/stat.h>

namespace netrove {
namespace {

std::string Encoded(const std::optional<QUrl>& address) {
    return address ? address->toEncoded().toStdString() : "none";
}

TEST(DesktopAddressTest, EncodesNetworkPaths) {
    for (const auto& [path, address] : TextPairs{
             {"\\\\NAS", "smb://nas"},
             {"\\\\nas_2\\Music\\", "smb://nas_2/Music"},
             {"\\\\nas\\s\\100% #1?.mp3", "smb://nas/s/100%25%20%231%3F.mp3"},
             {"\\\\nas\\s\\%2e%2e\\\"; rm -rf '$(x)'&.txt",
              "smb://nas/s/%252e%252e/%22%3B%20rm%20-rf%20%27%24%28x%29%27%26.txt"},
             {"\\\\nas\\s\\Füße\nmore", "smb://nas/s/F%C3%BC%C3%9Fe%0Amore"},
             {"\\\\nas\\s\\..\\t", "none"},
             {"\\\\nas\\s\\a/b", "none"},
             {"\\\\nas\\\\s", "none"},
             {"\\\\user@nas:80\\s", "none"},
             {"\\\\", "none"},
             {"\\nas\\s", "none"},
         })
        EXPECT_EQ(Encoded(SmbAddress(Text(path))), address) << path;
    EXPECT_EQ(Encoded(SmbAddress(Text("\\\\nas\\s\\a") + QChar(0))), "none");
    for (const auto& [host, address] : {std::pair("fd00::7", "smb://[fd00::7]:1445/s/a"),
                                        {"fe80::1%eth0", "smb://[fe80::1%25eth0]:1445/s/a"},
                                        {"a/b", "none"}})
        EXPECT_EQ(Encoded(SmbAddress(Text("\\\\nas\\s\\a"), ServerAddress{Text(host), 1445})),
                  address);
    EXPECT_EQ(Encoded(FileAddress(Text("/tmp/a b/'%#?.txt"))),
              "file:///tmp/a%20b/%27%25%23%3F.txt");
}

/// A network whose share \\LOCAL\SHARE lies in a folder of this computer, and whose computer FAR
/// has a name of its own for other programs.
class Network : public MemoryNetwork {
public:
    QString Folder;

    std::optional<QString> LocalPath(const QString& path) override {
        const QString share = Text("\\\\LOCAL\\SHARE\\");
        if (!path.startsWith(share))
            return std::nullopt;
        return Folder + Text("/") + path.mid(share.size()).replace(u'\\', u'/');
    }
    std::optional<ServerAddress> Address(const QString& path) override {
        return path.startsWith(Text("\\\\FAR\\"))
                   ? std::optional(ServerAddress{Text("far.lan"), 445})
                   : std::nullopt;
    }
};

class DesktopShellTest : public testing::Test {
protected:
    DesktopShellTest() {
        network.Folder = folder.path();
        QDir(folder.path()).mkdir(Text("sub"));
        for (const char* name : {"song.mp3", "tool.py", "unknown.qqq", "notes", "sub/--x y.txt"})
            WriteFile(folder.filePath(Text(name)), "plain text\n");
        for (const char* name : {"a #1.mp3", "film.blend"})
            network.AddFile(Text("\\\\NAS\\S\\D\\") + Text(name));
        network.AddFile(Text("\\\\FAR\\S\\a.mp3"));
    }

    int Execute(const QString& file, ShellVerb verb = ShellVerb::Default) {
        opened.clear();
        return shell.Execute(file, verb, {});
    }
    std::string Local(const char* name) { return "file://" + folder.path().toStdString() + name; }

    DesktopShell::Opener Opener() {
        return [this](const QUrl& address, const Shell::Failed& /*failed*/) {
            opened = address.toEncoded().toStdString();
            return openerWorks;
        };
    }

    QTemporaryDir folder;
    Network network;
    std::string opened;
    bool openerWorks = true;
    /// A loaded machine may take long to answer what opens a file.
    DesktopShell shell{network, Opener(), QDBusConnection::sessionBus(), std::chrono::seconds(20)};
};

TEST_F(DesktopShellTest, OpensWhatIsThere) {
    const struct {
        QString file;
        ShellVerb verb;
        int code;
        std::string opened;
    } cases[] = {
        {Text("\\\\LOCAL\\SHARE\\sub\\--x y.txt"), ShellVerb::Open, 42, Local("/sub/--x%20y.txt")},
        {Text("\\\\LOCAL\\SHARE\\sub\\--x y.txt"), ShellVerb::Explore, 42, Local("/sub/")},
        {folder.path(), ShellVerb::Explore, 42, Local("")},
        // A more general kind has a program; a local file may be looked into.
        {folder.filePath(Text("tool.py")), ShellVerb::Default, 42, Local("/tool.py")},
        {folder.filePath(Text("notes")), ShellVerb::Default, 42, Local("/notes")},
        {Text("\\\\NAS\\S\\D\\a #1.mp3"), ShellVerb::Explore, 42, "smb://nas/S/D/"},
        {Text("\\\\FAR\\S\\a.mp3"), ShellVerb::Default, 42, "smb://far.lan/S/a.mp3"},
        {Text("\\\\NAS\\S\\D\\"), ShellVerb::Open, 42, "smb://nas/S/D"},
        {Text("https://netrove.example/files"), ShellVerb::Default, 42,
         "https://netrove.example/files"},

        {folder.filePath(Text("none.mp3")), ShellVerb::Default, 2, ""},
        {folder.filePath(Text("none/none.mp3")), ShellVerb::Default, 3, ""},
        {Text("\\\\NAS\\S\\D\\none.mp3"), ShellVerb::Default, 2, ""},
        {Text("\\\\NAS\\S\\..\\a.mp3"), ShellVerb::Default, 3, ""},
        {Text("file:///etc/passwd"), ShellVerb::Default, 11, ""},
        {Text("javascript:alert(1)"), ShellVerb::Default, 11, ""},
        {QString(), ShellVerb::Default, 11, ""},
        {Text("\\\\NAS\\S\\D\\film.blend"), ShellVerb::Default, 31, ""},
        {Text("mailto:somebody@netrove.example"), ShellVerb::Open, 31, ""},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Execute(each.file, each.verb), each.code) << each.file.toStdString();
        EXPECT_EQ(opened, each.opened) << each.file.toStdString();
    }
    openerWorks = false;
    EXPECT_EQ(Execute(folder.filePath(Text("song.mp3"))), Shell::NoAssociation);
    EXPECT_FALSE(shell.OpenWith(folder.filePath(Text("notes")), {})) << "there is no session bus";
    EXPECT_EQ(Encoded(shell.Address(Text("\\\\LOCAL\\SHARE\\notes"))), Local("/notes"));
    EXPECT_EQ(Encoded(shell.Address(Text("\\\\FAR\\S\\a"))), "smb://far.lan/S/a");
}

/// Programs of the test's own, that are found before others.
class OwnPrograms {
public:
    OwnPrograms() { qputenv("PATH", folder_.path().toUtf8() + ':' + before_); }
    ~OwnPrograms() { qputenv("PATH", before_); }

    void Write(const char* name, const QByteArray& script) {
        const QString path = folder_.filePath(Text(name));
        WriteFile(path, "#!/bin/sh\n" + script + '\n');
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    [[nodiscard]] QString Folder() const { return folder_.path(); }

private:
    QTemporaryDir folder_;
    QByteArray before_ = qgetenv("PATH");
};

/// Far below what anything that hangs would take, far above the limits on a busy machine.
constexpr qint64 NoHang = 1000;

TEST_F(DesktopShellTest, AQuestionThatHangsHoldsNobodyUp) {
    OwnPrograms programs;
    programs.Write("xdg-mime", "exec sleep 60");
    QElapsedTimer time;
    time.start();
    DesktopShell impatient(network, Opener());
    EXPECT_EQ(impatient.Execute(folder.filePath(Text("unknown.qqq")), ShellVerb::Default, {}),
              Shell::Success);
    EXPECT_EQ(opened, Local("/unknown.qqq")) << "the opener finds out";
    EXPECT_GE(time.elapsed(), DesktopShell::QuestionLimit.count());
    EXPECT_LT(time.elapsed(), NoHang);
}

TEST(DesktopOpenerTest, TellsItsFailureAndIsNotWaitedFor) {
    OwnPrograms programs;
    const QString pipe = programs.Folder() + Text("/pipe");
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    programs.Write("xdg-open", "case $1 in *bad*) exit 3;; *good*) exit 0;; esac\n"
                               "read line <" +
                                   QFile::encodeName(pipe) + " && touch '" +
                                   QFile::encodeName(programs.Folder()) + "/done'");
    QStringList failed;
    {
        DesktopOpener opener;
        for (const char* address : {"smb://good", "smb://slow/it's", "smb://bad"})
            EXPECT_TRUE(opener.Open(QUrl(Text(address)),
                                    [&failed, address] { failed.append(Text(address)); }));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !failed.isEmpty(); }));
    }
    WriteFile(pipe, "go on\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(programs.Folder() + Text("/done")); }))
        << "what was opened outlives the program";
    EXPECT_EQ(failed, Texts({"smb://bad"}));
}

/// On a session bus of the test's own.
TEST_F(DesktopShellTest, WhatHangsOnTheBusHoldsNobodyUp) {
    QProcess daemon;
    daemon.start(Text("dbus-daemon"),
                 {Text("--session"), Text("--nofork"), Text("--print-address=1"),
                  Text("--address=unix:path=") + folder.filePath(Text("bus"))});
    if (!daemon.waitForReadyRead())
        GTEST_SKIP() << "needs dbus-daemon";
    const QByteArray address = daemon.readAllStandardOutput().trimmed();
    DesktopShell withBus(network, Opener(),
                         QDBusConnection::connectToBus(QString::fromUtf8(address), Text("test")));
    const QString song = folder.filePath(Text("song.mp3"));
    int failures = 0;
    const auto failed = [&failures] { ++failures; };
    EXPECT_FALSE(withBus.OpenWith(song, failed)) << "nobody offers it";
    EXPECT_EQ(withBus.Execute(song, ShellVerb::Explore, failed), Shell::Success);
    EXPECT_EQ(opened, Local("/"));

    DBusConnection* service = dbus_connection_open_private(address.constData(), nullptr);
    ASSERT_TRUE(service && dbus_bus_register(service, nullptr));
    for (const char* name : {"org.freedesktop.portal.Desktop", "org.freedesktop.FileManager1"})
        dbus_bus_request_name(service, name, 0, nullptr);
    opened.clear();
    QElapsedTimer time;
    time.start();
    EXPECT_TRUE(withBus.OpenWith(song, failed));
    EXPECT_EQ(withBus.Execute(song, ShellVerb::Explore, failed), Shell::Success);
    EXPECT_LT(time.elapsed(), NoHang);
    EXPECT_EQ(opened, "");
    dbus_connection_close(service);
    dbus_connection_unref(service);
    EXPECT_TRUE(QTest::qWaitFor([&] { return failures == 1 && !opened.empty(); }));
    EXPECT_EQ(opened, Local("/")) << "what the file manager didn't show is opened";

    // A bus that is silent itself is left alone, others aren't.
    const char* const variable = "DBUS_SESSION_BUS_ADDRESS";
    const QByteArray before = qgetenv(variable);
    for (const QByteArray& left : {address, before, QByteArray("disabled:")}) {
        const bool isSilent = left == "disabled:";
        if (isSilent)
            kill(static_cast<pid_t>(daemon.processId()), SIGSTOP);
        qputenv(variable, isSilent ? address : left);
        time.start();
        LeaveSilentSessionBus();
        EXPECT_LT(time.elapsed(), NoHang);
        EXPECT_EQ(qgetenv(variable), left);
    }
    qputenv(variable, before);
    QDBusConnection::disconnectFromBus(Text("test"));
    daemon.kill();
    daemon.waitForFinished();
}

} // namespace
} // namespace netrove
