#include "redirector/SmbProvider.h"
#include "smb/SambaTest.h"

#include <QFile>

namespace netrove {
namespace {

constexpr auto Ignore = [](Keyring::Outcome) {};

constexpr char User[] = "daemon"; // an account that every system has
constexpr char Password[] = "S3cret-of-the-test";

class SmbLogonTest : public SambaTest {
protected:
    /// A server of its own for each test, which tells how often somebody was to be let in.
    static void SetUpTestSuite() {}

    void SetUp() override {
        samba_ = Server("");
        SambaTest::SetUp();
        provider = Provider({samba_->Host()});
    }

    /// A server with a share PRIVATE that the user is let into.
    static std::unique_ptr<SambaServer> Server(const char* options) {
        auto server = std::make_unique<SambaServer>(Text(options) + SambaServer::PrivateShare());
        server->AddFile(Text("public/file"));
        EXPECT_TRUE(server->AddUser(Text(User), Text(Password)) || !SambaServer::IsAvailable());
        return server;
    }

    std::unique_ptr<SmbProvider> Provider(const std::vector<SmbHost>& hosts) {
        return std::make_unique<SmbProvider>(Text("LAN"), hosts, SambaServer::Helper(), SmbLimits(),
                                             logons);
    }

    void Store(const char* computer, const char* user, const char* password) {
        logons->Store(
            {.computer = Text(computer), .user = Text(user), .password = Secret(password)}, Ignore);
    }

    /// What looking at a file in a share raises, 0 for nothing.
    int Failure(const char* share, const char* server = "FILER") {
        const QString path = Text("\\\\%1\\%2\\file").arg(Text(server), Text(share));
        try {
            (void)provider->Info(UncPath::Parse(path).value());
            return 0;
        } catch (const RunTimeError& error) {
            return error.Number();
        }
    }

    /// How often a user's password was tried.
    static qsizetype Attempts(const SambaServer& server, const char* user) {
        return server.Log().count(QByteArray(QByteArray("\\[") + user + "] at ["));
    }

    static constexpr int Denied = static_cast<int>(ErrorNumber::PermissionDenied);

    std::shared_ptr<Logons> logons = std::make_shared<Logons>();
    std::unique_ptr<SmbProvider> provider;
};

TEST_F(SmbLogonTest, AStoredLogonOpensWhatGuestsCantSee) {
    EXPECT_EQ(Failure("PUBLIC"), 0);
    EXPECT_EQ(Failure("PRIVATE"), Denied);
    Store("filer", User, Password);
    EXPECT_EQ(Failure("PRIVATE"), 0) << "the same helpers go on";
    EXPECT_EQ(Failure("PUBLIC"), 0);
    Store("filer", "FILER\\daemon", Password);
    EXPECT_EQ(Failure("PRIVATE"), 0);
    logons->Remove(Text("FILER"), Ignore);
    EXPECT_EQ(Failure("PRIVATE"), Denied) << "a guest again";
    EXPECT_EQ(Failure("PUBLIC"), 0);
}

/// Whomever the server takes for a guest.
TEST_F(SmbLogonTest, AWrongPasswordIsTriedOnceAndNeverBecomesAGuest) {
    for (const char* guests : {"never", "bad user", "bad password"}) {
        const auto server = Server((std::string("    map to guest = ") + guests + '\n').c_str());
        ASSERT_TRUE(server->IsRunning());
        provider = Provider({server->Host()});
        for (const char* user : {User, "no-such-user"}) {
            Store("", user, "wrong");
            EXPECT_EQ(Failure("PUBLIC"), Denied) << guests;
            EXPECT_EQ(Failure("PUBLIC"), Denied) << guests;
            EXPECT_EQ(Attempts(*server, user), 1) << server->Log().toStdString();
        }
        EXPECT_FALSE(server->Log().contains("[nobody] at ["));
        Store("", User, Password);
        EXPECT_EQ(Failure("PRIVATE"), 0) << guests;
    }
}

/// What another process of the user may read of the helpers.
TEST_F(SmbLogonTest, NobodySeesThePassword) {
    Store("", User, Password);
    ASSERT_EQ(Failure("PRIVATE"), 0);
    const auto processes = provider->Pool().IdleProcesses();
    ASSERT_FALSE(processes.empty());
    for (const pid_t process : processes) {
        const QString folder = Text("/proc/%1/").arg(process);
        for (const char* name : {"cmdline", "environ", "limits"}) {
            QFile file(folder + QLatin1String(name));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray content = file.readAll();
            EXPECT_FALSE(content.contains(Password)) << name;
            if (qstrcmp(name, "limits") == 0) {
                EXPECT_TRUE(content.simplified().contains("Max core file size 0 0"));
            }
        }
    }
}

/// A ticket that is good for nothing: what is stored comes next.
TEST_F(SmbLogonTest, AnOldTicketIsNoHindrance) {
    samba_->AddFile(Text("ticket"), "no ticket");
    qputenv("KRB5CCNAME", QFile::encodeName(samba_->Path(Text("ticket"))));
    SmbHost host = samba_->Host(Text("localhost"));
    host.address.clear();
    provider = Provider({host});
    Store("", User, Password);
    EXPECT_EQ(Failure("PRIVATE", "localhost"), 0);
    EXPECT_EQ(Attempts(*samba_, User), 1);
    qunsetenv("KRB5CCNAME");
}

} // namespace
} // namespace netrove
