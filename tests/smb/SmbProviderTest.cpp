#include "platform/network/SmbProvider.h"

#include "fakes/FakeComputerSource.h"
#include "runtime/ExpectRaised.h"
#include "runtime/Yield.h"
#include "smb/FaultyProxy.h"
#include "smb/SambaServer.h"

#include <QFile>
#include <QMap>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace netrove {
namespace {

using Hosts = std::vector<SmbHost>;

/// One server for all tests: each works in a folder of its own.
class SmbProviderTest : public testing::Test {
protected:
    static void SetUpTestSuite() { samba_ = std::make_unique<SambaServer>(); }
    static void TearDownTestSuite() { samba_.reset(); }

    void SetUp() override {
        if (!SambaServer::IsAvailable())
            GTEST_SKIP() << "Samba needs to be installed and the user to be root";
        ASSERT_TRUE(samba_->IsRunning());
    }

    static SmbProvider Provider(const std::vector<SmbHost>& hosts) {
        return SmbProvider(QStringLiteral("LAN"), hosts, SambaServer::Helper());
    }

    static UncPath Path(const QString& text) {
        return UncPath::Parse(QLatin1String("\\\\") + text).value();
    }

    /// The entries of a folder but "." and "..", with their attributes.
    static QMap<QString, quint32> Names(SmbProvider& provider, const QString& path) {
        QMap<QString, quint32> names;
        FindData data;
        auto find = provider.FindFirst(Path(path), data);
        for (bool more = find != nullptr; more; more = find->FindNext(data)) {
            if (data.fileName != QLatin1String(".") && data.fileName != QLatin1String(".."))
                names.insert(data.fileName, data.attributes);
        }
        return names;
    }

    static QStringList RemoteNames(SmbProvider& provider, qint32 displayType,
                                   const QString& remoteName, qint32 type = NetEnum::TypeDisk) {
        QStringList names;
        NetRecord node;
        node.dwDisplayType = displayType;
        node.lpRemoteName = remoteName;
        const auto records = provider.List(node, type);
        EXPECT_TRUE(records);
        for (const NetRecord& record : records.value_or(std::vector<NetRecord>()))
            names += record.lpRemoteName;
        return names;
    }

    static inline std::unique_ptr<SambaServer> samba_;
    SmbProvider provider_{QStringLiteral("LAN"), Hosts{samba_->Host()}, SambaServer::Helper()};
};

/// A walk that goes everywhere.
class WholeWalk : public WalkPlan {
public:
    bool EntersWorkgroup(const QString& /*name*/) const override { return true; }
    bool EntersComputer(const QString& /*remoteName*/) const override { return true; }
    bool EntersShare(const QString& /*remoteName*/) const override { return true; }
    bool EntersFolder(const QString& /*folderPath*/, qsizetype /*nodeLength*/,
                      int /*depth*/) const override {
        return true;
    }
    QStringList AdminShares() const override { return {}; }
};

TEST_F(SmbProviderTest, AComputerIsTriedOnceItsAddressIsKnown) {
    auto made = std::make_unique<FakeComputerSource>();
    FakeComputerSource& source = *made;
    SmbProvider provider(QStringLiteral("LAN"), SmbComputers(Hosts{}, std::move(made)),
                         SambaServer::Helper());
    FoundComputer filer{.name = QStringLiteral("FILER"),
                        .workgroup = QStringLiteral("HOME"),
                        .addresses = {QStringLiteral("fe80::1%lo")},
                        .port = samba_->Port(),
                        .foundBy = FoundBy::WsDiscovery,
                        .model = {}};
    int passes = 0;
    const auto before = SetWaitingPass([&] {
        source.Computers = {filer};
        if (++passes == 1)
            source.Publish();
        filer.addresses = QStringList(QStringLiteral("127.0.0.1"));
        if (passes == 5)
            source.Finish();
        return true;
    });
    provider.BeginWalk(std::make_shared<WholeWalk>());
    const NetRecord lan{.dwDisplayType = NetEnum::DisplayNetwork,
                        .lpRemoteName = QStringLiteral("LAN")};
    const auto workgroups = provider.List(lan, NetEnum::TypeDisk);
    ASSERT_TRUE(workgroups && workgroups->size() == 1);
    const NetRecord server{.dwDisplayType = NetEnum::DisplayServer,
                           .lpRemoteName = QStringLiteral("\\\\FILER")};
    EXPECT_TRUE(provider.List(server, NetEnum::TypeDisk));
    provider.EndWalk();
    SetWaitingPass(before);
}

TEST_F(SmbProviderTest, ConfiguredComputersStandInTheirWorkgroups) {
    SmbProvider provider(
        QStringLiteral("LAN"),
        Hosts{{.name = QStringLiteral("B"), .workgroup = QStringLiteral("Second")},
              {.name = QStringLiteral("A"), .workgroup = QStringLiteral("First")},
              {.name = QStringLiteral("C"), .workgroup = QStringLiteral("SECOND")},
              {.name = QStringLiteral("a"), .workgroup = QStringLiteral("Second")}},
        SambaServer::Helper());
    EXPECT_EQ(RemoteNames(provider, NetEnum::DisplayNetwork, QStringLiteral("LAN")),
              (QStringList{QStringLiteral("Second"), QStringLiteral("First")}));
    EXPECT_EQ(RemoteNames(provider, NetEnum::DisplayDomain, QStringLiteral("second")),
              (QStringList{QStringLiteral("\\\\B"), QStringLiteral("\\\\C")}));
    EXPECT_TRUE(provider.Knows(QStringLiteral("c")));
    EXPECT_FALSE(provider.Knows(QStringLiteral("d")));
    EXPECT_EQ(provider.Workgroup(QStringLiteral("a")), QStringLiteral("First"));
    EXPECT_TRUE(provider.Pool().IdleProcesses().empty()) << "no helper before it is needed";
}

TEST_F(SmbProviderTest, ComputersTellTheirWorkgroups) {
    SambaServer home(QStringLiteral("    workgroup = Home-1"));
    SambaServer strict(QStringLiteral("    map to guest = never"));
    ASSERT_TRUE(home.IsRunning() && strict.IsRunning());
    SmbHost unstated = home.Host();
    unstated.workgroup.reset();
    SmbHost stated = home.Host(QStringLiteral("STATED"));
    SmbHost nameless = strict.Host(QStringLiteral("STRICT"));
    nameless.workgroup.reset();
    SmbHost silent{
        .name = QStringLiteral("SILENT"), .address = QStringLiteral("127.0.0.1"), .port = 1};
    SmbProvider provider = Provider({unstated, stated, nameless, silent});
    const QString network = QStringLiteral("LAN");
    EXPECT_EQ(RemoteNames(provider, NetEnum::DisplayNetwork, network),
              QStringList{QStringLiteral("WORKGROUP")});
    EXPECT_EQ(provider.Workgroup(QStringLiteral("STATED")), QStringLiteral("WORKGROUP"));
    EXPECT_EQ(provider.Workgroup(QStringLiteral("STRICT")), QStringLiteral("WORKGROUP"));
    EXPECT_EQ(provider.Workgroup(QStringLiteral("SILENT")), QString());
    EXPECT_EQ(provider.Workgroup(QStringLiteral("no-such-computer.invalid")), QString());
    EXPECT_EQ(provider.Workgroup(QStringLiteral("filer")), QStringLiteral("HOME-1"));
    // It stands there from now on, so that its path leads to it.
    EXPECT_EQ(RemoteNames(provider, NetEnum::DisplayNetwork, network),
              (QStringList{QStringLiteral("HOME-1"), QStringLiteral("WORKGROUP")}));
    EXPECT_EQ(RemoteNames(provider, NetEnum::DisplayDomain, QStringLiteral("home-1")),
              QStringList{QStringLiteral("\\\\FILER")});
    EXPECT_EQ(RemoteNames(provider, NetEnum::DisplayServer, QStringLiteral("\\\\FILER")).size(), 3)
        << "the same helper goes on";
}

TEST_F(SmbProviderTest, SharesAndPrintersComeFromOneQuestion) {
    FaultyProxy proxy(samba_->Port());
    SmbHost host = samba_->Host();
    host.port = proxy.Port();
    SmbProvider provider(QStringLiteral("LAN"), Hosts{host}, SambaServer::Helper());
    const QString server = QStringLiteral("\\\\FILER");
    EXPECT_EQ(
        RemoteNames(provider, NetEnum::DisplayServer, server),
        (QStringList{QStringLiteral("\\\\FILER\\PUBLIC"), QStringLiteral("\\\\FILER\\REFUSED"),
                     QStringLiteral("\\\\FILER\\JUNCTIONS")}));
    const qint64 bytes = proxy.Bytes();
    EXPECT_EQ(RemoteNames(provider, NetEnum::DisplayServer, server, NetEnum::TypePrint),
              QStringList{QStringLiteral("\\\\FILER\\PRINTER")});
    EXPECT_EQ(proxy.Bytes(), bytes);

    NetRecord node;
    node.dwDisplayType = NetEnum::DisplayServer;
    node.lpRemoteName = server;
    const auto records = provider.List(node, NetEnum::TypeDisk).value();
    EXPECT_EQ(records[0].lpComment, QString::fromUtf16(SambaServer::PublicComment));
    EXPECT_EQ(records[0].dwDisplayType, NetEnum::DisplayShare);
    EXPECT_EQ(records[0].lpProvider, QStringLiteral("LAN"));
}

TEST_F(SmbProviderTest, EveryNameTravelsBothWays) {
    const QStringList names{QStringLiteral("a b"),
                            QStringLiteral("comma, semicolon;"),
                            QStringLiteral("[list] {x}"),
                            QStringLiteral("#1"),
                            QStringLiteral("100%"),
                            QStringLiteral("%41"),
                            QStringLiteral("+plus&"),
                            QStringLiteral("$dollar@=~'`^!"),
                            QStringLiteral("caf\u00e9"),
                            QStringLiteral("cafe\u0301"),
                            QStringLiteral("\U0001F3B5 \u97f3"),
                            QStringLiteral("CASE.txt"),
                            QStringLiteral("case.txt"),
                            QStringLiteral("..dots"),
                            QString(200, u'n')};
    for (const QString& name : names)
        samba_->AddFile(QLatin1String("public/names/") + name, name.toUtf8());
    const auto found = Names(provider_, QStringLiteral("filer\\Public\\names"));
    EXPECT_EQ(QSet(found.keyBegin(), found.keyEnd()), QSet(names.begin(), names.end()));
    for (const QString& name : names)
        EXPECT_EQ(provider_.Read(Path(QStringLiteral("FILER\\PUBLIC\\names\\") + name), 0, 1000),
                  name.toUtf8());

    samba_->AddFile(QStringLiteral("public/folder %41 #&/below"));
    EXPECT_TRUE(Names(provider_, QStringLiteral("FILER\\PUBLIC\\folder %41 #&"))
                    .contains(QStringLiteral("below")));
}

TEST_F(SmbProviderTest, NamesThatSmbDoesNotAllowComeMangled) {
    const QByteArrayList names{"colon:",     "dot.",      "blank ",         "what?",
                               "\"quotes\"", "new\nline", "back\\slash",    "<a>",
                               "pipe|",      "star*",     "invalid\xff\xfe"};
    samba_->AddFolder(QStringLiteral("public/mangled"));
    for (const QByteArray& name : names) {
        // QFile has no way to a name that isn't text.
        const QByteArray path =
            QByteArray(QFile::encodeName(samba_->Path(QStringLiteral("public/mangled/"))) + name);
        const std::unique_ptr<FILE, decltype(&fclose)> file(fopen(path.constData(), "w"), &fclose);
        ASSERT_TRUE(file);
        ASSERT_GE(fputs("x", file.get()), 0);
    }
    const auto found = Names(provider_, QStringLiteral("FILER\\PUBLIC\\mangled"));
    // The server may leave out the one that isn't valid UTF-8.
    EXPECT_GE(found.size(), names.size() - 1);
    for (auto name = found.keyBegin(); name != found.keyEnd(); ++name)
        EXPECT_EQ(provider_.Read(Path(QStringLiteral("FILER\\PUBLIC\\mangled\\") + *name), 0, 9),
                  QByteArray("x"))
            << name->toStdString();
}

TEST_F(SmbProviderTest, DetailsAreTheSameInTheListingAndAlone) {
    const std::vector<std::pair<int, quint32>> modes{
        {0444, FileAttribute::ReadOnly},
        {0744, FileAttribute::Archive},
        {0654, FileAttribute::System},
        {0645, FileAttribute::Hidden},
        {0555, FileAttribute::ReadOnly | FileAttribute::Archive | FileAttribute::System |
                   FileAttribute::Hidden}};
    constexpr quint32 shown = FileAttribute::ReadOnly | FileAttribute::Hidden |
                              FileAttribute::System | FileAttribute::Directory |
                              FileAttribute::Archive;
    constexpr qint64 length = (qint64{5} << 30) + 123;
    const QDateTime modified(QDate(1999, 12, 31), QTime(23, 59, 58, 500));
    const timespec time = {.tv_sec = modified.toSecsSinceEpoch(), .tv_nsec = 500'000'000};
    for (const auto& [mode, attributes] : modes) {
        const QString name = QString::number(mode, 8);
        samba_->AddFile(QLatin1String("public/details/") + name);
        const QByteArray path =
            QFile::encodeName(samba_->Path(QLatin1String("public/details/") + name));
        ASSERT_EQ(truncate(path.constData(), length), 0);
        ASSERT_EQ(chmod(path.constData(), static_cast<mode_t>(mode)), 0);
        const timespec times[]{time, time};
        ASSERT_EQ(utimensat(AT_FDCWD, path.constData(), times, 0), 0);
    }
    samba_->AddFolder(QStringLiteral("public/details/folder"));

    SmbProvider listing = Provider({samba_->Host()});
    const auto found = Names(listing, QStringLiteral("FILER\\PUBLIC\\details"));
    EXPECT_EQ(found.value(QStringLiteral("folder")) & shown, FileAttribute::Directory);
    for (const auto& [mode, attributes] : modes) {
        const QString name = QString::number(mode, 8);
        EXPECT_EQ(found.value(name) & shown, attributes) << name.toStdString();
        for (SmbProvider* provider : {&listing, &provider_}) {
            const FileInfo info =
                provider->Info(Path(QStringLiteral("FILER\\PUBLIC\\details\\") + name));
            EXPECT_EQ(info.attributes & shown, attributes) << name.toStdString();
            EXPECT_EQ(info.length, length);
            EXPECT_EQ(info.modified, modified);
        }
    }
    EXPECT_EQ(provider_.Info(Path(QStringLiteral("FILER\\PUBLIC\\details\\folder"))).attributes &
                  shown,
              FileAttribute::Directory);
}

TEST_F(SmbProviderTest, ReadsRanges) {
    QByteArray content(5'000'000, '\0');
    for (qsizetype at = 0; at < content.size(); ++at)
        content[at] = static_cast<char>(at * 7 + at / 251);
    samba_->AddFile(QStringLiteral("public/ranges/file"), content);
    samba_->AddFile(QStringLiteral("public/ranges/other"), "other");
    const UncPath path = Path(QStringLiteral("FILER\\PUBLIC\\ranges\\file"));
    for (const auto& [offset, length] : std::vector<std::pair<qint64, qint64>>{{0, 10},
                                                                               {1, 1},
                                                                               {4'999'990, 100},
                                                                               {5'000'000, 1},
                                                                               {9'000'000, 1},
                                                                               {0, 0},
                                                                               {3, 4'999'000}})
        EXPECT_EQ(provider_.Read(path, offset, length), content.mid(offset, length)) << offset;
    EXPECT_EQ(provider_.Read(Path(QStringLiteral("FILER\\PUBLIC\\ranges\\other")), 1, 9),
              QByteArray("ther"));
    EXPECT_EQ(provider_.Read(path, 0, 10'000'000), content);

    const QByteArray local = QFile::encodeName(samba_->Path(QStringLiteral("public/ranges/file")));
    ASSERT_EQ(truncate(local.constData(), (qint64{5} << 30)), 0);
    EXPECT_EQ(provider_.Read(path, (qint64{5} << 30) - 3, 10), QByteArray(3, '\0'));
}

TEST_F(SmbProviderTest, FailuresHaveTheirNumbers) {
    samba_->AddFile(QStringLiteral("public/failures/secret"));
    samba_->AddFile(QStringLiteral("public/failures/open"));
    samba_->AddFile(QStringLiteral("public/failures/locked/file"));
    chmod(QFile::encodeName(samba_->Path(QStringLiteral("public/failures/secret"))).constData(),
          0600);
    chmod(QFile::encodeName(samba_->Path(QStringLiteral("public/failures/locked"))).constData(),
          0700);
    struct Case {
        const char* path;
        ErrorNumber look;
        ErrorNumber read;
    };
    using enum ErrorNumber;
    for (const Case& one : std::vector<Case>{
             {"FILER", PathNotFound, PathNotFound},
             {"FILER\\NOSUCH", PathNotFound, PathNotFound},
             {"FILER\\NOSUCH\\file", PathNotFound, PathNotFound},
             {"FILER\\REFUSED", PermissionDenied, PermissionDenied},
             {"FILER\\REFUSED\\file", PermissionDenied, PermissionDenied},
             {"FILER\\PRINTER", PermissionDenied, PermissionDenied},
             {"FILER\\PUBLIC\\nosuch", FileNotFound, FileNotFound},
             {"FILER\\PUBLIC\\failures\\nosuch", FileNotFound, FileNotFound},
             {"FILER\\PUBLIC\\nosuch\\file", PathNotFound, PathNotFound},
             {"FILER\\PUBLIC\\failures\\open\\below", PathNotFound, PathNotFound},
             {"FILER\\PUBLIC\\failures\\locked\\file", PermissionDenied, PermissionDenied},
             {"FILER\\PUBLIC\\failures\\secret", None, PermissionDenied},
             {"FILER\\PUBLIC\\failures\\locked", None, PermissionDenied},
             {"no-such-computer.invalid\\SHARE", PathNotFound, PathNotFound}}) {
        SCOPED_TRACE(one.path);
        const UncPath path = Path(QString::fromUtf8(one.path));
        FindData data;
        EXPECT_FALSE(provider_.FindFirst(path, data));
        EXPECT_FALSE(provider_.CanEnter(path));
        if (one.look == None)
            EXPECT_NO_THROW(static_cast<void>(provider_.Info(path)));
        else
            ExpectRaised(
                one.look, [&] { static_cast<void>(provider_.Info(path)); }, path.Text());
        ExpectRaised(
            one.read, [&] { static_cast<void>(provider_.Read(path, 0, 1)); }, path.Text());
    }
    NetRecord node;
    node.dwDisplayType = NetEnum::DisplayServer;
    node.lpRemoteName = QStringLiteral("\\\\no-such-computer.invalid");
    EXPECT_FALSE(provider_.List(node, NetEnum::TypeDisk));
}

TEST_F(SmbProviderTest, HiddenSharesAreReachedByTyping) {
    samba_->AddFile(QStringLiteral("hidden/h"), "h");
    samba_->AddFile(QStringLiteral("unlisted/u"), "u");
    for (const auto& [share, file] : std::vector<std::pair<QString, QString>>{
             {QStringLiteral("HIDDEN$"), QStringLiteral("h")},
             {QStringLiteral("UNLISTED"), QStringLiteral("u")}}) {
        const QString path = QLatin1String("FILER\\") + share;
        EXPECT_TRUE(provider_.CanEnter(Path(path)));
        EXPECT_TRUE(Names(provider_, path).contains(file));
    }
}

TEST_F(SmbProviderTest, TheNamelessAreLetInWhereGuestsArenT) {
    SambaServer strict(QStringLiteral("    map to guest = never"));
    ASSERT_TRUE(strict.IsRunning());
    strict.AddFile(QStringLiteral("public/file"));
    SmbProvider provider = Provider({strict.Host()});
    EXPECT_FALSE(provider.CanEnter(Path(QStringLiteral("FILER\\REFUSED"))));
    EXPECT_EQ(Names(provider, QStringLiteral("FILER\\PUBLIC")).size(), 1);
}

TEST_F(SmbProviderTest, ABigFolderIsFetchedOnce) {
    constexpr int files = 5000;
    for (int at = 0; at < files; ++at)
        samba_->AddFile(QStringLiteral("public/big/file number %1.mp3").arg(at));
    FaultyProxy proxy(samba_->Port());
    SmbHost host = samba_->Host();
    host.port = proxy.Port();
    SmbProvider provider(QStringLiteral("LAN"), Hosts{host}, SambaServer::Helper());
    const QString folder = QStringLiteral("FILER\\PUBLIC\\big");
    EXPECT_TRUE(provider.CanEnter(Path(folder)));
    const qint64 bytes = proxy.Bytes();
    const auto found = Names(provider, folder);
    EXPECT_EQ(found.size(), files);
    EXPECT_EQ(Names(provider, folder), found);
    for (auto name = found.keyBegin(); name != found.keyEnd(); ++name)
        EXPECT_EQ(provider.Info(Path(folder + QLatin1Char('\\') + *name)).length, 0);
    EXPECT_EQ(proxy.Bytes(), bytes) << "all of it was in the first listing";
}

} // namespace
} // namespace netrove
