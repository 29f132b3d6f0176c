#include "redirector/SmbProvider.h"
#include "smb/SambaTest.h"

namespace netrove {
namespace {

constexpr auto Ignore = [](Keyring::Outcome) {};

constexpr char User[] = "daemon"; // an account that every system has
constexpr char Password[] = "S3cret-of-the-test";

/// A server of its own for each test, whose log tells how often somebody was to be let in.
class SmbLogonTest : public SambaTest {
protected:
    static void SetUpTestSuite() {}

    void SetUp() override { Begin(""); }

    void Begin(const char* options) {
        samba_ = std::make_unique<SambaServer>(Text(options));
        SambaTest::SetUp();
        samba_->AddFile(Text("public/file"));
        EXPECT_TRUE(IsSkipped() || samba_->AddUser(Text(User), Text(Password)));
        provider = std::make_unique<SmbProvider>(Text("LAN"), std::vector{samba_->Host()},
                                                 SambaServer::Helper(), SmbLimits(), logons);
    }

    void Store(const char* computer, const char* user, const char* password) {
        logons->Store(
            {.computer = Text(computer), .user = Text(user), .password = Secret(password)}, Ignore);
    }

    /// What looking at a file in a share raises, 0 for nothing.
    int Failure(const char* share) {
        const auto path = UncPath::Parse(Text("\\\\FILER\\%1\\file").arg(Text(share)));
        const auto failure = FailureOf([&] { (void)provider->Info(path.value()); });
        return failure ? failure->Number() : 0;
    }

    /// How often a user's password was tried.
    static qsizetype Attempts(const char* user) {
        return samba_->Log().count(QByteArray("\\[").append(user).append("] at ["));
    }

    static constexpr int Denied = static_cast<int>(ErrorNumber::PermissionDenied);

    std::shared_ptr<Logons> logons = std::make_shared<Logons>();
    std::unique_ptr<SmbProvider> provider;
};

/// Nor does another process of the user see the password, in what it may read of the helpers.
TEST_F(SmbLogonTest, AStoredLogonOpensWhatGuestsCantSee) {
    EXPECT_EQ(Failure("PUBLIC"), 0);
    EXPECT_EQ(Failure("PRIVATE"), Denied);
    for (const char* user : {User, "FILER\\daemon"}) {
        Store("filer", user, Password);
        EXPECT_EQ(Failure("PRIVATE"), 0) << "the same helpers go on";
        EXPECT_EQ(Failure("PUBLIC"), 0);
    }
    const auto processes = provider->Pool().IdleProcesses();
    EXPECT_FALSE(processes.empty());
    for (const pid_t process : processes) {
        for (const char* name : {"cmdline", "environ", "limits"}) {
            QFile file(Text("/proc/%1/%2").arg(process).arg(Text(name)));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray content = file.readAll().simplified();
            EXPECT_FALSE(content.contains(Password)) << name;
            EXPECT_TRUE(content.contains("Max core file size 0 0") || qstrcmp(name, "limits") != 0);
        }
    }
    logons->Remove(Text("FILER"), Ignore);
    EXPECT_EQ(Failure("PRIVATE"), Denied) << "a guest again";
    EXPECT_EQ(Failure("PUBLIC"), 0);
}

/// Whomever the server takes for a guest.
TEST_F(SmbLogonTest, AWrongPasswordIsTriedOnceAndNeverBecomesAGuest) {
    for (const char* guests : {"never", "bad user", "bad password"}) {
        Begin((std::string("map to guest = ") + guests).c_str());
        for (const char* user : {User, "no-such-user"}) {
            Store("", user, "wrong");
            EXPECT_EQ(Failure("PUBLIC"), Denied) << guests;
            EXPECT_EQ(Failure("PUBLIC"), Denied) << guests;
            EXPECT_EQ(Attempts(user), 1) << samba_->Log().toStdString();
        }
        EXPECT_FALSE(samba_->Log().contains("[nobody] at ["));
        Store("", User, Password);
        EXPECT_EQ(Failure("PRIVATE"), 0) << guests;
    }
}

TEST_F(SmbLogonTest, ALogonIsTestedOnOneConnection) {
    const auto place = provider->RemotePlaceOf(UncPath::Parse(Text("\\\\FILER")).value());
    const auto test = [&](const char* password) {
        Store("FILER", User, password);
        return place->TryLogon(logons->All()[0], {});
    };
    EXPECT_EQ(test("wrong"), LogonResult::Refused);
    EXPECT_TRUE(logons->IsRefused(Text("FILER")));
    EXPECT_EQ(test(Password), LogonResult::LetIn);
    EXPECT_EQ(Attempts(User), 2);
    samba_->Stop();
    EXPECT_EQ(test(Password), LogonResult::Unreachable);
}

} // namespace
} // namespace netrove
