#include "fakes/Text.h"
#include "platform/network/SmbProvider.h"
#include "runtime/ExpectRaised.h"
#include "smb/SambaServer.h"

#include <QFile>
#include <gtest/gtest.h>

#include <array>

namespace netrove {
namespace {

constexpr auto Ignore = [](Keyring::Outcome) {};

// Accounts that every system has.
const QString User = Text("daemon");
const QString OtherUser = Text("games");
const QString Password = Text("S3cret-of-the-test");

/// Writes a line for each time that somebody was to be let in, and has a share for one user.
const QString Options = QStringLiteral("    log level = 0 auth_audit:3\n"
                                       "[PRIVATE]\n"
                                       "    path = %ROOT%/public\n"
                                       "    valid users = daemon games\n"
                                       "    guest ok = no\n");

class SmbLogonTest : public testing::Test {
protected:
    void SetUp() override {
        if (!SambaServer::IsAvailable())
            GTEST_SKIP() << "Samba needs to be installed and the user to be root";
        samba.emplace(Options);
        ASSERT_TRUE(samba->IsRunning());
        ASSERT_TRUE(samba->AddUser(User, Password));
        samba->AddFile(Text("public/file"));
        provider = Provider({samba->Host()});
    }

    std::unique_ptr<SmbProvider> Provider(const std::vector<SmbHost>& hosts) {
        return std::make_unique<SmbProvider>(Text("LAN"), hosts, SambaServer::Helper(), SmbLimits(),
                                             logons);
    }

    void Store(const QString& computer, const QString& user, const QString& password) {
        logons->Store({.computer = computer, .user = user, .password = Secret(password.toUtf8())},
                      Ignore);
    }

    /// What looking at a file in a share raises, 0 for nothing.
    int Failure(const QString& share, const QString& server = Text("FILER")) {
        try {
            (void)provider->Info(
                UncPath::Parse(QLatin1String("\\\\") + server + u'\\' + share + u"\\file").value());
            return 0;
        } catch (const RunTimeError& error) {
            return error.Number();
        }
    }

    /// How often a user's password was tried.
    static qsizetype Attempts(const SambaServer& server, const QString& user) {
        const QByteArray mark = "\\[" + user.toUtf8() + "] at [";
        return server.Log().count(mark);
    }

    static constexpr int Denied = static_cast<int>(ErrorNumber::PermissionDenied);

    std::shared_ptr<Logons> logons = std::make_shared<Logons>();
    std::optional<SambaServer> samba;
    std::unique_ptr<SmbProvider> provider;
};

TEST_F(SmbLogonTest, AStoredLogonOpensWhatGuestsCantSee) {
    EXPECT_EQ(Failure(Text("PUBLIC")), 0);
    EXPECT_EQ(Failure(Text("PRIVATE")), Denied);
    Store(Text("filer"), User, Password);
    EXPECT_EQ(Failure(Text("PRIVATE")), 0) << "the same helpers go on";
    EXPECT_EQ(Failure(Text("PUBLIC")), 0);
    Store(Text("filer"), QLatin1String("FILER\\") + User, Password);
    EXPECT_EQ(Failure(Text("PRIVATE")), 0);
    logons->Remove(Text("FILER"), Ignore);
    EXPECT_EQ(Failure(Text("PRIVATE")), Denied) << "a guest again";
    EXPECT_EQ(Failure(Text("PUBLIC")), 0);
}

TEST_F(SmbLogonTest, AWrongPasswordIsTriedOnceAndNeverBecomesAGuest) {
    Store(QString(), User, Text("wrong"));
    for (int request = 0; request < 5; ++request)
        EXPECT_EQ(Failure(Text("PUBLIC")), Denied);
    EXPECT_EQ(Attempts(*samba, User), 1) << samba->Log().toStdString();
    EXPECT_FALSE(samba->Log().contains("[nobody] at ["));

    Store(QString(), User, Password);
    EXPECT_EQ(Failure(Text("PRIVATE")), 0);
}

TEST_F(SmbLogonTest, AServerThatTakesWrongOnesForGuestsIsntFollowed) {
    for (const char* kind : {"bad user", "bad password"}) {
        SambaServer lenient(QLatin1String("    map to guest = ") + QLatin1String(kind) + u'\n' +
                            Options);
        ASSERT_TRUE(lenient.IsRunning() && lenient.AddUser(User, Password));
        lenient.AddFile(Text("public/file"));
        provider = Provider({lenient.Host()});
        Store(QString(), Text("no-such-user"), Password);
        EXPECT_EQ(Failure(Text("PUBLIC")), Denied) << kind;
        EXPECT_EQ(Failure(Text("PUBLIC")), Denied) << kind;
        EXPECT_EQ(Attempts(lenient, Text("no-such-user")), 1) << kind;
        Store(QString(), User, Text("wrong"));
        EXPECT_EQ(Failure(Text("PUBLIC")), Denied) << kind;
        EXPECT_EQ(Attempts(lenient, User), 1) << kind;
        Store(QString(), User, Password);
        EXPECT_EQ(Failure(Text("PRIVATE")), 0) << kind;
    }
}

TEST_F(SmbLogonTest, EachComputerHasItsOwn) {
    SambaServer other(Options);
    ASSERT_TRUE(other.IsRunning() && other.AddUser(OtherUser, Text("other")));
    other.AddFile(Text("public/file"));
    const QString name = Text("OTHER");
    provider = Provider({samba->Host(), other.Host(name)});
    Store(Text("FILER"), User, Password);
    Store(name, OtherUser, Text("other"));
    EXPECT_EQ(Failure(Text("PRIVATE")), 0);
    EXPECT_EQ(Failure(Text("PRIVATE"), name), 0);
    EXPECT_EQ(Failure(Text("PRIVATE")), 0);
    EXPECT_EQ(Attempts(other, User), 0);
}

/// What another process of the user may read of the helpers.
TEST_F(SmbLogonTest, NobodySeesThePassword) {
    Store(QString(), User, Password);
    ASSERT_EQ(Failure(Text("PRIVATE")), 0);
    const auto processes = provider->Pool().IdleProcesses();
    ASSERT_FALSE(processes.empty());
    for (const pid_t process : processes) {
        const QString folder = Text("/proc/%1/").arg(process);
        for (const char* name : {"cmdline", "environ", "limits"}) {
            QFile file(folder + QLatin1String(name));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray content = file.readAll();
            EXPECT_FALSE(content.contains(Password.toUtf8())) << name;
            if (qstrcmp(name, "limits") == 0) {
                EXPECT_TRUE(content.simplified().contains("Max core file size 0 0"));
            }
        }
    }
}

/// A ticket that is good for nothing: what is stored comes next.
TEST_F(SmbLogonTest, AnOldTicketIsNoHindrance) {
    samba->AddFile(Text("ticket"), "no ticket");
    qputenv("KRB5CCNAME", QFile::encodeName(samba->Path(Text("ticket"))));
    SmbHost host = samba->Host(Text("localhost"));
    host.address.clear();
    provider = Provider({host});
    Store(QString(), User, Password);
    EXPECT_EQ(Failure(Text("PRIVATE"), Text("localhost")), 0);
    EXPECT_EQ(Attempts(*samba, User), 1);
    qunsetenv("KRB5CCNAME");
}

} // namespace
} // namespace netrove
