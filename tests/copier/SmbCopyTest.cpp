#include "copier/CopierDriver.h"
#include "fakes/Text.h"
#include "platform/TempTree.h"
#include "redirector/OwnConnections.h"
#include "redirector/SmbProvider.h"
#include "smb/FaultyProxy.h"
#include "smb/SambaTest.h"

#include <QElapsedTimer>
#include <QProcess>

#include <csignal>
#include <fstream>

namespace netrove {
namespace {

using namespace std::chrono_literals;

constexpr int Broken = static_cast<int>(ErrorNumber::DeviceIOError);
constexpr qsizetype BigSize = 6'000'000;

/// The helpers that this process or another has started and that live: their launcher comes first.
std::vector<pid_t> Helpers(qint64 process = getpid()) {
    std::vector<pid_t> helpers;
    std::error_code error;
    for (const auto& task :
         std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task", error)) {
        std::ifstream list(task.path() / "children");
        for (pid_t child = 0; list >> child;) {
            std::string name;
            std::ifstream("/proc/" + std::to_string(child) + "/comm") >> name;
            if (name != "netrove-smb")
                continue;
            const auto launched = Helpers(child);
            helpers.push_back(child);
            helpers.insert(helpers.end(), launched.begin(), launched.end());
        }
    }
    return helpers;
}

class SmbCopyTest : public SambaTest {
protected:
    static void SetUpTestSuite() {
        SambaTest::SetUpTestSuite();
        samba_->AddFile(Text("public/big"), Pattern(BigSize));
    }

    /// A copier whose computer FILER is at that port.
    static std::unique_ptr<CopierDriver> Driver(quint16 port, const SmbLimits& limits = {}) {
        return std::make_unique<CopierDriver>(std::make_unique<SmbProvider>(
            Text("LAN"), FilerAt(port), SambaServer::Helper(), limits));
    }

    [[nodiscard]] QString Save(const QString& name) const { return save_.filePath(name); }
    [[nodiscard]] QStringList Saved() const { return save_.entryList(QDir::Files); }

    const QString share_ = Text("\\\\FILER\\PUBLIC\\");
    const QString big_ = share_ + Text("big");
    const TempTree tree_;
    const QDir save_{tree_.Path()};
};

/// The threads have helpers of their own, and still try an unknown logon one after the other.
TEST_F(SmbCopyTest, CopiesAreMadeAsWhomTheUserHasStored) {
    SambaServer server;
    ASSERT_TRUE(server.AddUser(Text("daemon"), Text("right")));
    server.AddFile(Text("public/file"), "content");
    const auto logons = std::make_shared<Logons>();
    const auto store = [&](const char* password) {
        logons->Store(
            {.computer = Text("FILER"), .user = Text("daemon"), .password = Secret(password)},
            [](Keyring::Outcome) {});
    };
    CopierDriver driver(std::make_unique<SmbProvider>(Text("LAN"),
                                                      std::vector<SmbHost>{server.Host()},
                                                      SambaServer::Helper(), SmbLimits(), logons));
    const QString file = Text("\\\\FILER\\PRIVATE\\file");
    store("wrong");
    QStringList ids;
    for (int at = 0; at < 8; ++at)
        ids += driver.Copier().QueueCopy(file, Save(QString::number(at)));
    for (const QString& id : ids)
        EXPECT_EQ(driver.Await(id), static_cast<int>(ErrorNumber::PermissionDenied));
    EXPECT_EQ(server.Log().count("Auth: [SMB2"), 1) << server.Log().toStdString();
    store("right");
    EXPECT_EQ(driver.Copy(file, Save(Text("file"))), 0);
    EXPECT_EQ(ReadFile(Save(Text("file"))), "content");
}

TEST_F(SmbCopyTest, FilesComeWholeAndWithTheirTimesAndEndOnce) {
    const auto driver = Driver(samba_->Port());
    QMap<QString, QString> names;
    for (int at = 0; at < 40; ++at) {
        const QString name = Text("a #%1 b").arg(at);
        samba_->AddFile(Text("public/many/") + name, Pattern(at * 30'000));
        const QString id = driver->Copier().QueueCopy(share_ + Text("many\\") + name, Save(name));
        names.insert(id, name);
        EXPECT_TRUE(driver->Copier().Progress(id));
    }
    EXPECT_TRUE(driver->Done().isEmpty()) << "never from within QueueCopy";
    ASSERT_TRUE(CopierDriver::WaitUntil([&] { return driver->Done().size() >= names.size(); }));
    for (const auto& [id, name] : names.toStdMap()) {
        EXPECT_EQ(driver->Done().values(id), QList<int>{0});
        EXPECT_FALSE(driver->Copier().Progress(id));
        const QString from = samba_->Path(Text("public/many/") + name);
        EXPECT_EQ(ReadFile(Save(name)), ReadFile(from));
        EXPECT_EQ(QFileInfo(Save(name)).lastModified(), QFileInfo(from).lastModified());
    }
    for (const auto& [source, number] : {std::pair("PUBLIC\\none", ErrorNumber::FileNotFound),
                                         {"PUBLIC\\none\\file", ErrorNumber::PathNotFound},
                                         {"REFUSED\\big", ErrorNumber::PermissionDenied},
                                         {"PUBLIC\\many", ErrorNumber::PermissionDenied}})
        EXPECT_EQ(driver->Copy(Text("\\\\FILER\\") + Text(source), Save(Text("x"))),
                  static_cast<int>(number))
            << source;
    EXPECT_EQ(driver->Done().size(), names.size() + 4);
}

TEST_F(SmbCopyTest, WhatATargetDoesntTakeIsNoAnswerToTheNextRequest) {
    samba_->AddFile(Text("public/other"), "content");
    const SmbProvider provider(Text("LAN"), FilerAt(samba_->Port()), SambaServer::Helper());
    OwnConnections connections;
    const auto open = [&](const QString& path) {
        return provider.RemotePlaceOf(*UncPath::Parse(path))->OpenFile(connections, {});
    };
    EXPECT_THROW(open(big_)->Read(
                     0, CopySource::MaxRead,
                     [](QByteArrayView /*bytes*/) { throw RunTimeError(ErrorNumber::DiskFull); }),
                 RunTimeError);
    QByteArray read;
    open(share_ + Text("other"))->Read(0, 7, [&](QByteArrayView bytes) { read += bytes; });
    EXPECT_EQ(read, "content");
}

TEST_F(SmbCopyTest, ABrokenCopyIsResumed) {
    SmbLimits limits;
    limits.silence = 500ms;
    limits.negotiate = 500ms;
    for (const auto& breakAfter : {&FaultyProxy::FallSilentAfter, &FaultyProxy::CloseAfter}) {
        FaultyProxy proxy(samba_->Port());
        const auto driver = Driver(proxy.Port(), limits);
        (proxy.*breakAfter)(BigSize * 2 / 3);
        const QString target = Save(QString::number(proxy.Port()));
        QElapsedTimer time;
        time.start();
        EXPECT_EQ(driver->Copy(big_, target), Broken);
        EXPECT_LT(time.elapsed(), 8000) << "not the limit of a request";
        EXPECT_FALSE(QFile::exists(target));
        proxy.Heal();
        const qint64 before = proxy.Bytes();
        const auto later = Driver(proxy.Port());
        EXPECT_EQ(later->Copy(big_, target), 0);
        EXPECT_EQ(ReadFile(target), Pattern(BigSize));
        EXPECT_LT(proxy.Bytes() - before, BigSize);
    }
}

TEST_F(SmbCopyTest, WhateverDiesEveryCopyEnds) {
    SambaServer mortal;
    mortal.AddFile(Text("public/big"), Pattern(BigSize));
    for (const bool isServer : {true, false}) {
        FaultyProxy proxy(isServer ? mortal.Port() : samba_->Port());
        proxy.Delay(50ms);
        const auto driver = Driver(proxy.Port());
        const QString id =
            driver->Copier().QueueCopy(big_, Save(isServer ? Text("server") : Text("helper")));
        ASSERT_TRUE(driver->WaitForProgress(id));
        const auto helpers = Helpers();
        ASSERT_EQ(helpers.size(), 2U);
        if (isServer)
            mortal.Stop();
        else
            kill(helpers[1], SIGKILL);
        EXPECT_EQ(driver->Await(id), Broken);
        EXPECT_EQ(driver->Done().size(), 1);
        EXPECT_EQ(Saved(), QStringList());
    }
}

TEST_F(SmbCopyTest, LettingGoEndsAllWithoutWaiting) {
    FaultyProxy proxy(samba_->Port());
    const auto driver = Driver(proxy.Port());
    proxy.FallSilentAfter(BigSize / 2);
    for (int at = 0; at < 4; ++at)
        static_cast<void>(driver->Copier().QueueCopy(big_, Save(QString::number(at))));
    ASSERT_TRUE(CopierDriver::WaitUntil([&] { return proxy.Bytes() >= BigSize / 2; }));
    QElapsedTimer timer;
    timer.start();
    driver->DropCopier();
    EXPECT_LT(timer.elapsed(), 1000);
    EXPECT_TRUE(Helpers().empty());
    EXPECT_EQ(Saved(), QStringList());
    QCoreApplication::processEvents();
    EXPECT_TRUE(driver->Done().isEmpty());
}

/// In a process of its own: copies until its input ends, from the port that the environment tells.
TEST(CopyingProgram, DISABLED_EndsWithItsInput) {
    SmbHost host{.name = Text("FILER"), .address = Text("127.0.0.1")};
    host.port = qEnvironmentVariable("NETROVE_COPY_PORT").toUShort();
    CopierDriver driver(
        std::make_unique<SmbProvider>(Text("LAN"), std::vector{host}, SambaServer::Helper()));
    ASSERT_TRUE(driver.WaitForProgress(driver.Copier().QueueCopy(
        Text("\\\\FILER\\PUBLIC\\big"), qEnvironmentVariable("NETROVE_COPY_TARGET"))));
    std::fputs("copying", stderr);
    std::getchar();
}

TEST_F(SmbCopyTest, AProgramThatEndsLeavesNothingBehind) {
    FaultyProxy proxy(samba_->Port());
    proxy.Delay(50ms);
    qputenv("NETROVE_COPY_PORT", QByteArray::number(proxy.Port()));
    qputenv("NETROVE_COPY_TARGET", Save(Text("big")).toUtf8());
    for (const bool isKilled : {false, true}) {
        QProcess program;
        program.setReadChannel(QProcess::StandardError);
        program.start(
            QCoreApplication::applicationFilePath(),
            {Text("--gtest_also_run_disabled_tests"), Text("--gtest_filter=CopyingProgram.*")});
        ASSERT_TRUE(program.waitForReadyRead(30000));
        const auto helpers = Helpers(program.processId());
        EXPECT_EQ(helpers.size(), 2U);
        if (isKilled)
            program.kill();
        else
            program.closeWriteChannel();
        ASSERT_TRUE(program.waitForFinished(10000));
        EXPECT_EQ(program.exitCode() != 0, isKilled);
        for (const pid_t helper : helpers)
            EXPECT_TRUE(CopierDriver::WaitUntil([&] { return kill(helper, 0) != 0; }));
        EXPECT_EQ(Saved(), QStringList());
    }
}

} // namespace
} // namespace netrove
