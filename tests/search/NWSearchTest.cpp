#include "search/NWSearch.h"

#include "fakes/Files.h"
#include "fakes/ListedFind.h"
#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "runtime/ExpectRaised.h"
#include "runtime/Yield.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// A network with one server \\S and its share \\S\D, searched with a written record of all that
/// happens.
class Engine : public testing::Test {
protected:
    void SetUp() override {
        network.AddBranch({"Net", "WG", "\\\\S", "\\\\S\\D"});
        engine.SetRecurseFolders(true);
        engine.ItemFound = [this](const QString& path) {
            found.append(path);
            onFound();
        };
        engine.SearchUpdate = [this](const QString& path) {
            updates.append(path);
            onUpdate(path);
        };
    }

    void AddFiles(std::initializer_list<const char*> paths) {
        for (const char* path : paths)
            network.AddFile(Text(path));
    }

    /// What the last search has found, joined by blanks.
    [[nodiscard]] std::string Found() const { return found.join(u' ').toStdString(); }

    std::shared_ptr<NetResource> Node(const char* remoteName, qint32 displayType,
                                      bool printer = false) {
        auto node = std::make_shared<NetResource>(network);
        node->InitFrom({.dwDisplayType = displayType,
                        .lpRemoteName = Text(remoteName),
                        .lpProvider = Text("Net")});
        node->MarkPrinter(printer);
        return node;
    }

    std::shared_ptr<NetResource> Root() { return std::make_shared<NetResource>(network); }

    void Search(const char* patterns, const std::shared_ptr<NetResource>& start) {
        found.clear();
        updates.clear();
        lists.ParseNetNodes(settings);
        engine.BeginSearch(Text(patterns), start);
    }

    /// What Search leaves in the log, without the search head.
    QString Logged(const char* patterns, const std::shared_ptr<NetResource>& start,
                   qint16 troubleshooting = 1) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(Text("test.log"));
        settings.Troubleshooting = troubleshooting;
        log.Open(path);
        Search(patterns, start);
        log.Close();
        settings.Troubleshooting = 0;
        return QString::fromUtf8(ReadFile(path)).section(Text("\r\n"), 3);
    }

    MemoryNetwork network;
    Settings settings;
    ExclusionLists lists;
    TroubleshootingLog log{settings};
    NWSearch engine{SearchServices{network, settings, lists, log, nullptr, &network}};
    QStringList found;
    QStringList updates;
    std::function<void()> onFound = [] {};
    std::function<void(const QString&)> onUpdate = [](const QString&) {};
};

TEST_F(Engine, WalksFilesOfAFolderBeforeItsSubfolders) {
    AddFiles({"\\\\S\\D\\OLD\\two.MP3", "\\\\S\\D\\one.mp3", "\\\\S\\D\\readme",
              "\\\\S\\D\\music.mp3\\deep\\three.mp3"});
    Search(" *.mp3 ,one*", Root());
    EXPECT_EQ(Found(),
              "\\\\S\\D\\one.mp3 \\\\S\\D\\OLD\\two.MP3 \\\\S\\D\\music.mp3\\deep\\three.mp3");
    EXPECT_EQ(updates,
              Texts({"", "Net", "WG", "\\\\S", "\\\\S\\D", "\\\\S\\D", "\\\\S\\D\\",
                     "\\\\S\\D\\OLD\\", "\\\\S\\D\\music.mp3\\", "\\\\S\\D\\music.mp3\\deep\\"}));
    EXPECT_EQ(engine.NumResults(), 3);
    EXPECT_EQ(engine.GetResult(1), found[0]);
    EXPECT_EQ(engine.GetResult(3), found[2]);
    EXPECT_TRUE(engine.GetResult(0).isEmpty() && engine.GetResult(4).isEmpty());

    engine.SetRecurseFolders(false);
    engine.SetKeepResults(false);
    Search("*.mp3", Root());
    EXPECT_EQ(Found(), "\\\\S\\D\\one.mp3");
    EXPECT_EQ(engine.NumResults(), 0);
    Search("*.*", Root());
    EXPECT_EQ(Found(), "\\\\S\\D\\one.mp3") << "README has no dot";
}

TEST_F(Engine, AsksInItsOrderAndYieldsAtEachPoint) {
    AddFiles({"\\\\S\\D\\a.txt", "\\\\S\\D\\SUB\\"});
    network.AddNode(Text("\\\\S"), 11, Text("TREE"));
    QStringList record;
    int yields = 0;
    network.OnCall = [&](const QString& call) { record.append(call); };
    onFound = [&] { record.append(Text("found")); };
    onUpdate = [&](const QString& path) { record.append(Text("U ") + path); };
    SetYieldAlways(true);
    SetYieldPass([&] { ++yields; });
    Search("*.mp3,*.txt", Node("\\\\S", NetEnum::DisplayServer));
    SetYieldPass({});
    SetYieldAlways(false);
    EXPECT_EQ(record.join(u'|'),
              Text("U \\\\S|open \\\\S|print \\\\S|U \\\\S\\D|enter \\\\S\\D|U \\\\S\\D|"
                   "U \\\\S\\D\\|list \\\\S\\D\\|list \\\\S\\D\\|found|U \\\\S\\D\\SUB\\|"
                   "list \\\\S\\D\\SUB\\|list \\\\S\\D\\SUB\\|open \\\\S\\D|enter TREE"));
    EXPECT_EQ(yields, 54);
}

TEST_F(Engine, LogsNodesAndFolderExclusions) {
    AddFiles({"\\\\MEDIA\\MUSIC\\OLD\n\\TEMP\\x.mp3", "\\\\MEDIA\\MUSIC\\TEMPLATES\\y.mp3"});
    settings.ExcNetNodes = {Text("Temp|True|Folder")};
    EXPECT_EQ(Logged("*.mp3", Node("\\\\MEDIA\\MUSIC", NetEnum::DisplayShare), 0), QString());
    EXPECT_EQ(Logged("*.mp3", Node("\\\\MEDIA\\MUSIC", NetEnum::DisplayShare)),
              Text("NETWORK SEARCH\r\nRemote Name: \\\\MEDIA\\MUSIC\r\nResource Type: 3\r\n"
                   "Resource Type Name: Share\r\nProvider: Net\r\n \r\n"
                   "Exclude Folder: \\TEMP\\ in \\\\MEDIA\\MUSIC\\OLD\uFFFD\\TEMP\\\r\n \r\n"));
    EXPECT_EQ(Found(), "\\\\MEDIA\\MUSIC\\TEMPLATES\\y.mp3");
    EXPECT_TRUE(updates.contains(Text("\\\\MEDIA\\MUSIC\\OLD\n\\TEMP\\")));
    EXPECT_TRUE(
        Logged("*", Node("\\\\S\\LASER", 3, true)).endsWith(Text("Other Type: Printer\r\n \r\n")));
    EXPECT_TRUE(Logged("*", Root()).contains(Text("Other Type: Generic\r\n \r\n")));
}

TEST_F(Engine, ExcludesNodesByTypeAlsoTheStart) {
    AddFiles({"\\\\S\\D\\a.mp3", "\\\\S\\TEMP\\a.mp3", "\\\\TEMP\\D\\a.mp3"});
    const struct {
        const char* entry;
        const char* start;
        qint32 displayType;
        const char* logLine; ///< null: not excluded
    } cases[] = {
        {" net |1|NETWORK", "Net", 6, "Exclude Network: NET"},
        {"net|nonsense|Printer", "Net", 6, nullptr},
        {"wg|True|Workgroup", "WG", 1, "Exclude Workgroup: WG"},
        {"wg|True|Workgroup", "WG", 5, "Exclude Workgroup: WG"},
        {"s|True|Workstation", "\\\\S", 2, "Exclude Workstation: \\\\S"},
        {"s|True|Workgroup", "\\\\S", 2, nullptr},
        {"temp|True|Folder", "\\\\S\\Temp", 3, "Exclude Share: TEMP"},
        {"temp|True|Folder", "\\\\S\\Temp", 9, "Exclude Share: TEMP"},
        {"temp|False|Folder", "\\\\S\\TEMP", 3, nullptr},
        {"temp|True|Folder", "\\\\TEMP\\D", 3, nullptr}, // no folder below the share
    };
    for (const auto& [entry, start, displayType, logLine] : cases) {
        settings.ExcNetNodes = {Text(entry)};
        const QString text = Logged("*.mp3", Node(start, displayType));
        EXPECT_EQ(found.isEmpty(), logLine != nullptr) << entry << " at " << start;
        if (logLine) {
            EXPECT_TRUE(text.endsWith(Text(logLine) + Text("\r\n \r\n"))) << text.toStdString();
        }
    }
    settings.ExcNetNodes =
        Texts({"net|True|Network", "wg|True|Workgroup", "s|True|Workstation", "d|True|Folder"});
    settings.ExcludeNetNodes = false;
    Search("*.mp3", Root());
    EXPECT_EQ(Found(), "\\\\S\\D\\a.mp3");
    using enum ErrorNumber;
    for (const auto& [entry, number] : {std::pair("Temp|True", SubscriptOutOfRange),
                                        {"", SubscriptOutOfRange},
                                        {"Temp|maybe|Folder", TypeMismatch},
                                        {"Temp||Folder", TypeMismatch}}) {
        settings.ExcNetNodes = {Text(entry)};
        ExpectRaised(
            number, [&] { Search("*", Root()); }, Text(entry));
    }
}

TEST_F(Engine, KnowsWhenThereAreNoComputers) {
    const struct {
        const char* start;
        qint32 displayType;
        bool foundNobody;
    } cases[] = {{"Net", 6, false},
                 {"Empty", 6, true},
                 {"Empty", 1, true},
                 {"\\\\EMPTY", 2, false},
                 {"\\\\EMPTY\\D", 3, false}};
    for (const auto& [start, displayType, foundNobody] : cases) {
        Search("*", Node(start, displayType));
        EXPECT_EQ(engine.FoundNobody(), foundNobody) << start;
    }
    settings.ExcNetNodes = {Text("Empty|True|Network")};
    Search("*", Node("Empty", 6));
    EXPECT_FALSE(engine.FoundNobody()) << "nobody was looked for";
    onUpdate = [this](const QString&) { engine.Abandon(); };
    Search("*", Node("Empty", 1));
    EXPECT_FALSE(engine.FoundNobody());
}

TEST_F(Engine, PassesOverTheCurrentComputer) {
    network.AddFile(Text("\\\\S\\D\\a.mp3"));
    settings.CurrentComputerName = Text("\\\\s ");
    EXPECT_TRUE(Logged("*", Root()).endsWith(Text("Exclude Current Workstation: \\\\s \r\n \r\n")));
    EXPECT_TRUE(found.isEmpty());
    Search("*", Node("\\\\S\\D", 3));
    EXPECT_EQ(found.size(), 1) << "a start below the computer isn't affected";
    settings.CurrentComputerName = Text("\\\\LONGER-THAN-15-CHARACTERS");
    network.ThisComputer = Text("\\\\S");
    EXPECT_TRUE(Logged("*", Root()).endsWith(Text("15-CHARACTERS\r\n \r\n"))) << "by its address";
    EXPECT_TRUE(found.isEmpty());
    settings.IncludeCurrentComputer = true;
    Search("*", Root());
    EXPECT_EQ(found.size(), 1);
}

TEST_F(Engine, SearchesAdminSharesBeforeTheListedOnes) {
    AddFiles({"\\\\S\\C$\\TEMP\\a.mp3", "\\\\S\\E$\\b.mp3", "\\\\S\\D\\c.mp3"});
    settings.IncludeAdminShares = true;
    Search("*.mp3", Node("\\\\S", 2));
    EXPECT_EQ(Found(), "\\\\S\\C$\\TEMP\\a.mp3 \\\\S\\E$\\b.mp3 \\\\S\\D\\c.mp3");
    EXPECT_EQ(updates.filter(Text("$")).filter(QRegularExpression(Text("\\$$"))).size(), 25);
    EXPECT_EQ(updates[1], Text("\\\\S\\Admin$"));
    EXPECT_FALSE(updates.contains(Text("\\\\S\\B$")));

    // The compared part of a folder path begins behind the server there.
    settings.ExcNetNodes = {Text("C$|True|Folder")};
    Search("*.mp3", Node("\\\\S", 2));
    EXPECT_EQ(found.size(), 2);
}

TEST_F(Engine, EntersContainersOrTheirChildren) {
    // A share that can't be entered still has them.
    network.AddNode(Text("\\\\S\\D"), 11, Text("\\\\T\\FOLDER"));
    network.AddNode(Text("\\\\S\\D"), 11, Text("TREE"));
    network.AddNode(Text("TREE"), NetEnum::DisplayShare, Text("\\\\T\\BELOW"));
    AddFiles({"\\\\T\\FOLDER\\a", "\\\\T\\BELOW\\b"});
    Search("*", Root());
    EXPECT_EQ(Found(), "\\\\T\\FOLDER\\a");
    EXPECT_FALSE(updates.contains(Text("\\\\S\\D\\"))) << "it isn't scanned";
    settings.IncludeVirtualShares = true;
    Search("*", Root());
    EXPECT_EQ(Found(), "\\\\T\\FOLDER\\a \\\\T\\BELOW\\b");
}

/// Two servers of four shares each, every one with a file.
class Traps : public Engine {
protected:
    void SetUp() override {
        Engine::SetUp();
        for (const char* share : {"\\\\S\\D", "\\\\S\\E", "\\\\S\\F", "\\\\T\\G", "\\\\T\\H"}) {
            const QByteArray server = QByteArray(share).left(3);
            network.AddBranch({"Net", "WG", server.constData(), share});
            network.AddFile(Text(share) + Text("\\a"));
        }
    }
};

TEST_F(Traps, ServeOnceInEachWalk) {
    QStringList entered;
    network.OnCall = [&](const QString& call) {
        if (call.startsWith(Text("enter ")))
            entered.append(call.mid(6));
    };
    // Every share fails: D is caught among the children of \\S, E among those of WG, G among
    // those of \\T, and H goes up to the provider's walk; F is never reached.
    Search("[", Root());
    EXPECT_EQ(entered.join(u' '), Text("\\\\S\\D \\\\S\\E \\\\T\\G \\\\T\\H"));
    ExpectRaised(ErrorNumber::InvalidPatternString, [&] { Search("[", Node("\\\\S\\D", 3)); });
    EXPECT_EQ(engine.NumResults(), 0);
}

TEST_F(Traps, ServeForFailuresOfAnyKind) {
    QStringList failing{Text("open \\\\S")};
    network.OnCall = [&failing](const QString& call) {
        if (failing.contains(call))
            throw RunTimeError(ErrorNumber::DeviceIOError);
        if (call == Text("list \\\\T\\G\\"))
            throw std::bad_alloc();
    };
    network.AddBranch({"Net", "WG", "\\\\U", "\\\\U\\I"});
    network.AddFile(Text("\\\\U\\I\\a"));
    Search("*", Root());
    EXPECT_EQ(Found(), "\\\\T\\H\\a \\\\U\\I\\a");
    failing.append(Text("open \\\\T"));
    Search("*", Root());
    EXPECT_EQ(Found(), "")
        << "two servers whose shares can't be read: the trap of their walk is used up";
    EXPECT_THROW(Search("*", nullptr), RunTimeError);
}

TEST_F(Engine, FailuresAfterTheFirstMatchOfAFolderArePassedOver) {
    AddFiles({"\\\\S\\D\\a.mp3", "\\\\S\\D\\b.txt", "\\\\S\\D\\c.mp3", "\\\\S\\D\\SUB\\d.txt"});
    onFound = [this] {
        if (found.size() == 1)
            throw RunTimeError(ErrorNumber::Overflow);
        throw std::bad_alloc();
    };
    // b.txt reaches the second pattern, which no name may be tested with: after the match of
    // a.mp3 that is skipped, in the next folder it isn't.
    EXPECT_THROW(Search("*.mp3,[", Node("\\\\S\\D", 3)), RunTimeError);
    EXPECT_EQ(Found(), "\\\\S\\D\\a.mp3 \\\\S\\D\\c.mp3");
    EXPECT_EQ(engine.NumResults(), 2);
}

TEST_F(Engine, StopsAtTheNextTestAfterAbandon) {
    for (const char* name : {"a", "b", "SUB\\c"})
        network.AddFile(Text("\\\\S\\D\\") + Text(name));
    onFound = [this] { engine.Abandon(); };
    Search("*", Root());
    EXPECT_EQ(Found(), "\\\\S\\D\\a");
    EXPECT_EQ(updates.last(), Text("\\\\S\\D\\"));

    onFound = [] {};
    settings.IncludeAdminShares = true;
    network.AddFile(Text("\\\\S\\E$\\b"));
    for (const char* at : {"", "WG", "\\\\S\\E$\\", "\\\\S\\D", "\\\\S\\D\\SUB\\"}) {
        const QString stop = Text(at);
        onUpdate = [this, stop](const QString& path) {
            if (path == stop)
                engine.Abandon();
        };
        Search("*", Root());
        EXPECT_EQ(updates.last(), stop);
        EXPECT_FALSE(found.contains(Text("\\\\S\\D\\SUB\\c"))) << stop.toStdString();
    }
}

TEST_F(Engine, EndlessFoldersEnd) {
    class Endless : public MemoryNetwork {
        std::unique_ptr<FileFind> FindFirst(const QString& /*searchPath*/,
                                            FindData& first) override {
            first = {.attributes = FileAttribute::Directory, .fileName = Text("x")};
            return std::make_unique<ListedFind>(std::vector<FindData>());
        }
        bool CanEnter(const QString& /*path*/) override { return true; }
    } endless;
    NWSearch search(SearchServices{endless, settings, lists, log});
    search.SetRecurseFolders(true);
    search.BeginSearch(Text("*"), Node("\\\\S\\D", 3));
    EXPECT_EQ(search.NumResults(), 0);
}

} // namespace
} // namespace netrove
