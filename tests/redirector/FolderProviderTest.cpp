#include "redirector/FolderProvider.h"

#include "fakes/LinkedTree.h"
#include "fakes/Text.h"
#include "platform/LocalFiles.h"
#include "platform/TempTree.h"
#include "runtime/ExpectRaised.h"
#include "runtime/Yield.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

#include <limits>

namespace netrove {
namespace {

/// A path behind the two backslashes.
UncPath Unc(const char* text) {
    return *UncPath::Parse(Text("\\\\") + Text(text));
}

class FolderProviderTest : public testing::Test {
protected:
    FolderProviderTest() {
        tree_.File("NORTH/ALPHA/Music/Rock/song.mp3", "12345");
        tree_.File("NORTH/ALPHA/C$/boot.ini", "x");
        tree_.Folder("NORTH/ALPHA/Laser");
        tree_.File("NORTH/ALPHA/Closed/file");
        tree_.File("NORTH/ALPHA/Slow/Sub/file");
        tree_.Folder("NORTH/BETA/Music");
        tree_.Folder("SOUTH/GAMMA");
        tree_.File("NORTH/no folder.txt");
        tree_.File("sample-network.ini", "[NORTH]\ncomment=Up there\n"
                                         "[north/alpha/laser]\ntype=printer\n"
                                         "[NORTH/ALPHA/Closed]\nfault=refused\n"
                                         "[NORTH/ALPHA/Slow]\nfault=slow\ndelay=50\n"
                                         "[NORTH/BETA]\nfault=unreachable\ndelay=100\n");
        SetWaitingPass([this] { return ++waits_ < abandonedAt_; });
    }
    ~FolderProviderTest() override { SetWaitingPass({}); }

    FolderProvider& Provider() {
        if (!provider_)
            provider_.emplace(Text("Sample"), tree_.Path());
        return *provider_;
    }

    /// What is listed below a node, names and comments, joined by "|".
    std::string Names(qint32 displayType, const char* name, qint32 type = NetEnum::TypeDisk) {
        const auto records =
            Provider().List({.dwDisplayType = displayType, .lpRemoteName = Text(name)}, type);
        if (!records)
            return "none";
        QStringList names;
        for (const NetRecord& record : *records)
            names += QString(record.lpRemoteName + u' ' + record.lpComment).trimmed();
        return names.join(u'|').toStdString();
    }

    /// Whether a folder can be listed, and how many milliseconds it takes to know.
    std::pair<bool, qint64> Look(const char* path) {
        QElapsedTimer clock;
        clock.start();
        FindData data;
        const bool isListed = Provider().FindFirst(Unc(path), data) != nullptr;
        return {isListed, clock.elapsed()};
    }

    TempTree tree_;
    std::optional<FolderProvider> provider_;
    int waits_ = 0;
    int abandonedAt_ = std::numeric_limits<int>::max();
};

TEST_F(FolderProviderTest, ListsEachLevel) {
    EXPECT_EQ(Names(NetEnum::DisplayNetwork, "Sample"), "NORTH Up there|SOUTH");
    EXPECT_EQ(Names(NetEnum::DisplayDomain, "north"), "\\\\ALPHA|\\\\BETA");
    EXPECT_EQ(Names(NetEnum::DisplayServer, "\\\\ALPHA"),
              "\\\\ALPHA\\Closed|\\\\ALPHA\\Music|\\\\ALPHA\\Slow");
    EXPECT_EQ(Names(NetEnum::DisplayServer, "\\\\ALPHA", NetEnum::TypePrint), "\\\\ALPHA\\Laser");
    EXPECT_EQ(Names(NetEnum::DisplayServer, "\\\\GAMMA"), "");
    EXPECT_EQ(Names(NetEnum::DisplayServer, "\\\\DELTA"), "none");
    EXPECT_EQ(Names(NetEnum::DisplayDomain, "EAST"), "none");
    EXPECT_TRUE(Provider().Problems().isEmpty());
    EXPECT_TRUE(Provider().Knows(Text("alpha")) && !Provider().Knows(Text("DELTA")));
    EXPECT_EQ(Provider().Workgroup(Text("gamma")), Text("SOUTH"));

    tree_.Folder("EAST/DELTA/New");
    EXPECT_EQ(Names(NetEnum::DisplayNetwork, "Sample"), "EAST|NORTH Up there|SOUTH")
        << "what came later";
    EXPECT_TRUE(Provider().CanEnter(Unc("delta\\new")));
    tree_.Folder("EAST/DELTA/Newer");
    Provider().BeginWalk(nullptr);
    EXPECT_EQ(Names(NetEnum::DisplayServer, "\\\\DELTA"), "\\\\DELTA\\New|\\\\DELTA\\Newer");
}

TEST_F(FolderProviderTest, FindsFilesInAnyCase) {
    const UncPath typed = Unc("alpha\\MUSIC\\rock\\Song.MP3");
    EXPECT_EQ(Provider().Info(typed).length, 5);
    EXPECT_EQ(Provider().Read(typed, 1, 3), "234");
    EXPECT_EQ(Provider().LocalPath(typed),
              QFileInfo(tree_.Path(Text("NORTH/ALPHA/Music/Rock/song.mp3"))).canonicalFilePath());
    EXPECT_FALSE(LocalFiles().LocalPath(tree_.Path(Text("north")))) << "only where asked";
    EXPECT_TRUE(Look("alpha\\music\\ROCK").first);
    tree_.File("NORTH/ALPHA/Music/Café/both", "lower");
    tree_.File("NORTH/ALPHA/Music/Café/BOTH", "upper");
    EXPECT_EQ(Provider().Read(Unc("alpha\\music\\CAFÉ\\both"), 0, 9), "lower");
    EXPECT_EQ(Provider().Read(Unc("alpha\\music\\CAFÉ\\BOTH"), 0, 9), "upper");
    EXPECT_TRUE(Provider().CanEnter(Unc("alpha\\c$"))) << "hidden, not closed";
}

TEST_F(FolderProviderTest, LinksAreFollowedButNeverRoundInCircles) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        const QByteArray name = QByteArray::number(seed);
        tree_.Folder("trees/" + name);
        tree_.Link("SOUTH/GAMMA/" + name, "../../trees/" + name);
        const FileWays there = MakeLinkedTree(tree_.Bytes("trees/" + name).toStdString(), seed);
        static_cast<void>(Names(NetEnum::DisplayNetwork, "Sample")); // looks at the folder anew
        FileWays found;
        Walk(Provider(), Text("\\\\GAMMA\\%1").arg(seed), "", found);
        EXPECT_EQ(found, there) << seed;
    }
}

TEST_F(FolderProviderTest, RefusesWhatIsClosed) {
    for (const char* path : {"ALPHA\\Closed", "ALPHA\\Laser"}) {
        EXPECT_FALSE(Provider().CanEnter(Unc(path)) || Look(path).first);
        const UncPath file = *UncPath::Parse(Unc(path).Text() + Text("\\file"));
        EXPECT_FALSE(Provider().LocalPath(file));
        ExpectRaised(ErrorNumber::PermissionDenied, [&] { return Provider().Read(file, 0, 1); });
    }
    EXPECT_EQ(waits_, 0) << "a refusal comes at once";
}

TEST_F(FolderProviderTest, KeepsTheDisplayAliveWhileItWaitsUntilThatIsGivenUp) {
    const struct {
        const char* path;
        bool isListed;
        int delay;
    } cases[] = {{"BETA\\Music", false, 100}, {"ALPHA\\Slow\\Sub", true, 50}};
    for (const auto& [path, isListed, delay] : cases) {
        SCOPED_TRACE(path);
        abandonedAt_ = std::numeric_limits<int>::max();
        waits_ = 0;
        const auto [found, milliseconds] = Look(path);
        EXPECT_EQ(found, isListed);
        EXPECT_GE(milliseconds, delay);
        EXPECT_GE(waits_, delay / 25);
        abandonedAt_ = 1;
        waits_ = 0;
        EXPECT_FALSE(Look(path).first);
        EXPECT_EQ(waits_, 1);
    }
    EXPECT_EQ(Names(NetEnum::DisplayServer, "\\\\BETA"), "none");
    EXPECT_FALSE(Provider().CanEnter(Unc("BETA\\Music")));
    EXPECT_EQ(Provider().Workgroup(Text("BETA")), QString());
}

TEST_F(FolderProviderTest, SaysWhatIsWrongWithItsFile) {
    tree_.File("sample-network.ini", "[NORTH/ALPHA/Slow]\nfault=slow\ndelay=999999999999\n"
                                     "fault=broken\ncolour=red\n"
                                     "[NORTH/OMEGA]\ncomment=x\n"
                                     "nonsense\n"
                                     "[NORTH/ALPHA/Closed]\nfault=refused\n"
                                     "[NORTH]\ntype=printer\ndelay=-5\n");
    QStringList lines;
    for (const QString& problem : Provider().Problems())
        lines += problem.section(u':', 0, 0).remove(Text("sample-network.ini, line "));
    lines.sort();
    EXPECT_EQ(lines.join(u' '), Text("12 3 4 5 6 8"));
    EXPECT_FALSE(Provider().CanEnter(Unc("ALPHA\\Closed"))) << "the good lines hold";
    const FolderProvider nowhere(Text("Gone"), tree_.Path(Text("gone")));
    EXPECT_EQ(nowhere.Problems().size(), 1);
}

} // namespace
} // namespace netrove
