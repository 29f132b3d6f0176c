#include "redirector/SmbProvider.h"

#include "fakes/LinkedTree.h"
#include "runtime/ExpectRaised.h"
#include "smb/FaultyProxy.h"
#include "smb/OpenWalk.h"
#include "smb/SambaTest.h"

#include <QFile>
#include <QMap>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// Each test works in a folder of its own in the share PUBLIC.
class SmbProviderTest : public SambaTest {
protected:
    static SmbProvider Provider(const std::vector<SmbHost>& hosts) {
        return SmbProvider(Text("LAN"), hosts, SambaServer::Helper());
    }

    /// A path behind the two backslashes.
    static UncPath Path(const QString& text) { return UncPath::Parse(Text("\\\\") + text).value(); }
    static UncPath Public(const QString& below) { return Path(Text("FILER\\PUBLIC\\") + below); }

    /// The path of the file system, for what AddFile has made.
    static QByteArray Local(const QString& below) {
        return QFile::encodeName(samba_->Path(Text("public/") + below));
    }

    /// The entries of a folder but "." and "..", with their attributes.
    static QMap<QString, quint32> Names(SmbProvider& provider, const UncPath& path) {
        QMap<QString, quint32> names;
        FindData data;
        auto find = provider.FindFirst(path, data);
        for (bool more = find != nullptr; more; more = find->FindNext(data))
            names.insert(data.fileName, data.attributes);
        names.remove(Text("."));
        names.remove(Text(".."));
        return names;
    }

    /// The remote names below a node with their comments, joined by blanks.
    static std::string List(SmbProvider& provider, qint32 displayType, const char* name,
                            qint32 type = NetEnum::TypeDisk) {
        QStringList names;
        for (const NetRecord& record :
             provider.List({.dwDisplayType = displayType, .lpRemoteName = Text(name)}, type)
                 .value_or(std::vector<NetRecord>())) {
            EXPECT_EQ(record.lpProvider, Text("LAN"));
            names += QString(record.lpRemoteName + u' ' + record.lpComment).trimmed();
        }
        return names.join(u' ').toStdString();
    }

    SmbProvider provider_ = Provider({samba_->Host()});
};

TEST_F(SmbProviderTest, ComputersTellTheirWorkgroups) {
    SambaServer home(Text("    workgroup = Home-1"));
    SambaServer strict(Text("    map to guest = never"));
    SmbHost unstated = home.Host();
    SmbHost nameless = strict.Host(Text("STRICT"));
    unstated.workgroup.reset();
    nameless.workgroup.reset();
    SmbHost silent{.name = Text("SILENT"), .address = Text("127.0.0.1"), .port = 1};
    SmbProvider provider = Provider({unstated, home.Host(Text("STATED")), nameless, silent});
    EXPECT_EQ(List(provider, NetEnum::DisplayNetwork, "LAN"), "WORKGROUP");
    EXPECT_TRUE(provider.Pool().IdleProcesses().empty()) << "no helper before it is needed";
    for (const auto& [computer, workgroup] : {std::pair("STATED", "WORKGROUP"),
                                              {"STRICT", "WORKGROUP"},
                                              {"SILENT", ""},
                                              {"no-such-computer.invalid", ""},
                                              {"filer", "HOME-1"}})
        EXPECT_EQ(provider.Workgroup(Text(computer)), Text(workgroup)) << computer;
    // It stands there from now on, so that its path leads to it.
    EXPECT_EQ(List(provider, NetEnum::DisplayNetwork, "LAN"), "HOME-1 WORKGROUP");
    EXPECT_EQ(List(provider, NetEnum::DisplayDomain, "home-1"), "\\\\FILER");
    EXPECT_NE(List(provider, NetEnum::DisplayServer, "\\\\FILER"), "") << "the same helper goes on";
    EXPECT_TRUE(provider.CanEnter(Path(Text("STRICT\\PUBLIC")))) << "the nameless get in";
    EXPECT_FALSE(provider.CanEnter(Path(Text("STRICT\\REFUSED"))));
}

TEST_F(SmbProviderTest, AListIsFetchedOnceInAWalkAndAnewInTheNext) {
    SambaServer server;
    FaultyProxy proxy(server.Port());
    SmbProvider provider = Provider(FilerAt(proxy.Port()));
    const UncPath folder = Public(Text("once"));
    SmbProvider direct = Provider({server.Host()});
    const UncPath file = Public(Text("once\\file"));
    const auto lengthInNewWalk = [&] {
        direct.BeginWalk(std::make_shared<OpenWalk>());
        return Names(direct, folder).isEmpty() ? -1 : direct.Info(file).length;
    };
    server.AddFile(Text("public/once/file"), "1");
    EXPECT_EQ(List(provider, NetEnum::DisplayServer, "\\\\FILER"),
              "\\\\FILER\\PUBLIC Ordner f\u00fcr alle \u2014 \u97f3\u697d \\\\FILER\\REFUSED");
    EXPECT_TRUE(provider.CanEnter(folder));
    EXPECT_EQ(lengthInNewWalk(), 1);
    const qint64 bytes = proxy.Bytes();
    server.AddFile(Text("public/once/file"), "22");
    EXPECT_EQ(List(provider, NetEnum::DisplayServer, "\\\\FILER", NetEnum::TypePrint),
              "\\\\FILER\\PRINTER");
    EXPECT_EQ(Names(provider, folder).size(), 1);
    EXPECT_EQ(provider.Info(file).length, 1) << "as it was listed";
    EXPECT_EQ(proxy.Bytes(), bytes);

    EXPECT_EQ(lengthInNewWalk(), 2);
    server.Stop();
    EXPECT_EQ(lengthInNewWalk(), -1);
    ASSERT_TRUE(server.Start());
    EXPECT_EQ(lengthInNewWalk(), 2) << "a refused connection isn't remembered";
}

TEST_F(SmbProviderTest, EveryNameTravelsBothWays) {
    QStringList names{QString(200, u'n')};
    for (const char* name :
         {"a b", "comma, semicolon;", "[list] {x}", "#1", "100%", "%41", "+plus&", "$dollar@=~'`^!",
          "caf\u00e9", "cafe\u0301", "\U0001F3B5 \u97f3", "CASE.txt", "case.txt", "..dots",
          "folder %41 #&"})
        names += Text(name);
    for (const QString& name : names)
        samba_->AddFile(Text("public/names/") + name + u'/' + name, name.toUtf8());
    const auto found = Names(provider_, Path(Text("filer\\Public\\names")));
    EXPECT_EQ(QSet(found.keyBegin(), found.keyEnd()), QSet(names.begin(), names.end()));
    for (const QString& name : names) {
        const QString folder = Text("names\\") + name;
        EXPECT_EQ(Names(provider_, Public(folder)).keys(), QStringList{name});
        EXPECT_EQ(provider_.Read(Public(folder + u'\\' + name), 0, 1000), name.toUtf8());
    }
}

TEST_F(SmbProviderTest, LinksThatTheServerFollowsDontGoRoundInCircles) {
    for (unsigned seed = 0; seed < 40; ++seed) {
        const QString folder = QString::number(seed);
        samba_->AddFile(Text("public/%1/file").arg(seed));
        const FileWays there = MakeLinkedTree(Local(folder).toStdString(), seed);
        if (seed % 2 != 0) {
            provider_.BeginWalk(std::make_shared<OpenWalk>());
            provider_.Expect({{.remoteName = Public(folder).Text()}});
        }
        FileWays found;
        Walk(provider_, Public(folder).Text(), "", found);
        EXPECT_EQ(found, there) << seed;
        provider_.EndWalk();
    }
}

TEST_F(SmbProviderTest, DetailsAreTheSameInTheListingAndAlone) {
    namespace Is = FileAttribute;
    const std::map<QString, std::pair<mode_t, quint32>> modes{
        {Text("plain"), {0744, Is::Archive}},
        {Text("read only"), {0444, Is::ReadOnly}},
        {Text("system"), {0654, Is::System}},
        {Text("hidden"), {0645, Is::Hidden}},
        {Text("all"), {0555, Is::ReadOnly | Is::Archive | Is::System | Is::Hidden}}};
    constexpr quint32 shown = Is::ReadOnly | Is::Hidden | Is::System | Is::Directory | Is::Archive;
    constexpr qint64 length = (qint64{5} << 30) + 123;
    const QDateTime modified(QDate(1999, 12, 31), QTime(23, 59, 58, 500));
    const timespec time = {.tv_sec = modified.toSecsSinceEpoch(), .tv_nsec = 500'000'000};
    const timespec times[]{time, time};
    for (const auto& [name, mode] : modes) {
        samba_->AddFile(Text("public/details/") + name);
        const QByteArray path = Local(Text("details/") + name);
        ASSERT_EQ(truncate(path.constData(), length), 0);
        ASSERT_EQ(chmod(path.constData(), mode.first), 0);
        ASSERT_EQ(utimensat(AT_FDCWD, path.constData(), times, 0), 0);
    }
    samba_->AddFile(Text("public/details/folder/file"));

    SmbProvider listing = Provider({samba_->Host()});
    const auto found = Names(listing, Public(Text("details")));
    EXPECT_EQ(provider_.Info(Public(Text("details\\folder"))).attributes & shown, Is::Directory);
    for (const auto& [name, mode] : modes) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(found.value(name) & shown, mode.second);
        for (SmbProvider* provider : {&listing, &provider_}) {
            const FileInfo info = provider->Info(Public(Text("details\\") + name));
            EXPECT_EQ(info.attributes & shown, mode.second);
            EXPECT_EQ(info.length, length);
            EXPECT_EQ(info.modified, modified);
        }
    }
}

TEST_F(SmbProviderTest, ReadsRanges) {
    QByteArray content(5'000'000, '\0');
    for (qsizetype at = 0; at < content.size(); ++at)
        content[at] = static_cast<char>(at * 7 + at / 251);
    samba_->AddFile(Text("public/ranges/file"), content);
    samba_->AddFile(Text("public/ranges/other"), "other");
    const UncPath path = Public(Text("ranges\\file"));
    const std::pair<qint64, qint64> ranges[] = {{0, 10}, {4'999'990, 100}, {5'000'000, 1},
                                                {0, 0},  {3, 4'999'000},   {0, 10'000'000}};
    for (const auto& [offset, length] : ranges)
        EXPECT_EQ(provider_.Read(path, offset, length), content.mid(offset, length)) << offset;
    EXPECT_EQ(provider_.Read(Public(Text("ranges\\other")), 1, 9), QByteArray("ther"));

    ASSERT_EQ(truncate(Local(Text("ranges/file")).constData(), qint64{5} << 30), 0);
    EXPECT_EQ(provider_.Read(path, (qint64{5} << 30) - 3, 10), QByteArray(3, '\0'));
}

TEST_F(SmbProviderTest, FailuresHaveTheirNumbers) {
    for (const char* name : {"secret", "open", "locked/file"})
        samba_->AddFile(Text("public/failures/") + Text(name));
    chmod(Local(Text("failures/secret")).constData(), 0600);
    chmod(Local(Text("failures/locked")).constData(), 0700);
    using enum ErrorNumber;
    const struct {
        const char* path;
        ErrorNumber look;
        ErrorNumber read;
    } cases[] = {
        {"FILER", PathNotFound, PathNotFound},
        {"FILER\\NOSUCH\\file", PathNotFound, PathNotFound},
        {"FILER\\REFUSED", PermissionDenied, PermissionDenied},
        {"FILER\\REFUSED\\file", PermissionDenied, PermissionDenied},
        {"FILER\\PRINTER", PermissionDenied, PermissionDenied},
        {"FILER\\PUBLIC\\failures\\nosuch", FileNotFound, FileNotFound},
        {"FILER\\PUBLIC\\failures\\open\\below", PathNotFound, PathNotFound},
        {"FILER\\PUBLIC\\failures\\locked\\file", PermissionDenied, PermissionDenied},
        {"FILER\\PUBLIC\\failures\\secret", None, PermissionDenied},
        {"FILER\\PUBLIC\\failures\\locked", None, PermissionDenied},
        {"no-such-computer.invalid\\SHARE", PathNotFound, PathNotFound},
    };
    for (const auto& [text, look, read] : cases) {
        SCOPED_TRACE(text);
        const UncPath path = Path(Text(text));
        FindData data;
        EXPECT_FALSE(provider_.FindFirst(path, data));
        EXPECT_FALSE(provider_.CanEnter(path));
        if (look == None)
            EXPECT_NO_THROW(static_cast<void>(provider_.Info(path)));
        else
            ExpectRaised(look, [&] { return provider_.Info(path); });
        ExpectRaised(read, [&] { return provider_.Read(path, 0, 1); });
    }
    EXPECT_FALSE(provider_.List({.dwDisplayType = NetEnum::DisplayServer,
                                 .lpRemoteName = Text("\\\\no-such-computer.invalid")},
                                NetEnum::TypeDisk));
}

} // namespace
} // namespace netrove
