#include "redirector/Network.h"

#include "fakes/ListedFind.h"
#include "fakes/Text.h"
#include "redirector/SmbProvider.h"
#include "runtime/ExpectRaised.h"

#include <QHash>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// Answers what it was told to, however hostile.
class FakeProvider : public NetworkProvider {
public:
    FakeProvider(const char* name, QStringList servers)
        : NetworkProvider(Text(name)), servers_(std::move(servers)) {}

    void Add(const QString& node, qint32 displayType, const QString& remoteName,
             qint32 type = NetEnum::TypeDisk) {
        lists_[{node, type}].push_back(Record(displayType, remoteName, {}, type));
    }
    std::vector<FindData> Entries;
    QStringList Asked;
    bool IsOpen = true;
    QString Why; ///< what Trouble() says
    bool IsInPart = false;

    std::optional<std::vector<NetRecord>> List(const NetRecord& node, qint32 type) override {
        const auto found = lists_.constFind({node.lpRemoteName, type});
        return found == lists_.constEnd() ? std::nullopt : std::optional(*found);
    }
    bool Knows(const QString& server) override { return servers_.contains(server); }
    bool TakesUnknown() const override { return Name() == Text("LAN"); }
    QString Workgroup(const QString& server) override { return QLatin1String("of ") + server; }
    std::unique_ptr<FileFind> FindFirst(const UncPath& path, FindData& first) override {
        Asked += path.Text();
        auto find = std::make_unique<ListedFind>(Entries);
        return find->FindNext(first) ? std::move(find) : nullptr;
    }
    bool CanEnter(const UncPath& path) override {
        Asked += path.Text();
        return IsOpen;
    }
    QString Trouble(const UncPath& /*path*/) const override { return Why; }
    bool BrokeOff() const override { return IsInPart; }
    FileInfo Info(const UncPath& path) override {
        Asked += path.Text();
        return {.length = 7};
    }
    QByteArray Read(const UncPath&, qint64, qint64) override { return "content"; }
    std::optional<QString> LocalPath(const UncPath&) override { return Text("/here"); }

private:
    QStringList servers_;
    QHash<std::pair<QString, qint32>, std::vector<NetRecord>> lists_;
};

class NetworkTest : public testing::Test {
protected:
    NetworkTest() {
        std::vector<std::unique_ptr<NetworkProvider>> providers;
        for (FakeProvider* provider : {lan_, other_})
            providers.emplace_back(provider);
        network_ = std::make_unique<Network>(std::move(providers));
    }

    /// The remote names below a node of the LAN, joined by "|", or "none" where its list can't be
    /// opened.
    std::string Names(const char* node, qint32 type = NetEnum::TypeDisk,
                      const char* provider = "LAN") {
        NetEnum::Handle handle = 0;
        const NetRecord start{.lpRemoteName = Text(node), .lpProvider = Text(provider)};
        if (network_->OpenEnum(NetEnum::ScopeGlobalNet, type, 0, start, handle) != NetEnum::NoError)
            return "none";
        QStringList names;
        std::vector<NetRecord> records;
        quint32 size = 1 << 20;
        qint32 count = NetEnum::CountAll;
        while (network_->EnumResource(handle, count, records, size) == NetEnum::NoError) {
            for (const NetRecord& record : records)
                names += record.lpRemoteName;
            count = NetEnum::CountAll;
        }
        network_->CloseEnum(handle);
        return names.join(u'|').toStdString();
    }

    FakeProvider* lan_ = new FakeProvider("LAN", Texts({"ONE"}));
    FakeProvider* other_ = new FakeProvider("Other", Texts({"ONE", "TWO"}));
    std::unique_ptr<Network> network_;
};

TEST_F(NetworkTest, FetchesAListPieceByPiece) {
    QStringList expected;
    for (int number = 0; number < 40; ++number) {
        expected += Text("GROUP%1").arg(number).repeated(1 + number % 7);
        lan_->Add(Text("LAN"), NetEnum::DisplayDomain, expected.last());
    }
    NetEnum::Handle handle = 0;
    const NetRecord start{.lpRemoteName = Text("LAN"), .lpProvider = Text("LAN")};
    ASSERT_EQ(network_->OpenEnum(NetEnum::ScopeGlobalNet, NetEnum::TypeDisk, 0, start, handle),
              NetEnum::NoError);
    QStringList names;
    std::vector<NetRecord> records;
    quint32 size = 10;
    qint32 count = 0;
    for (int call = 0; call < 200; ++call) {
        count = call % 5 == 4 ? 1 : NetEnum::CountAll;
        if (network_->EnumResource(handle, count, records, size) != NetEnum::NoError)
            continue;
        ASSERT_EQ(count, static_cast<qint32>(records.size()));
        for (const NetRecord& record : records)
            names += record.lpRemoteName;
    }
    EXPECT_LT(size, 150U) << "no more than the next record needs";
    EXPECT_EQ(names, expected);
    EXPECT_EQ(network_->EnumResource(handle, count, records, size), NetEnum::NoMoreItems);
    network_->CloseEnum(handle);
    EXPECT_EQ(network_->EnumResource(handle, count, records, size), NetEnum::InvalidHandle);
}

TEST_F(NetworkTest, LeavesOutHostileNodes) {
    for (const QString& name : {QString(), QString(1, QChar(u'\0')), QString(256, u'x')})
        lan_->Add(Text("LAN"), NetEnum::DisplayDomain, name);
    const struct {
        const char* node;
        qint32 displayType;
        qint32 type;
        const char* names; ///< separated by "|"
        const char* left;
    } cases[] = {
        {"LAN", NetEnum::DisplayDomain, NetEnum::TypeDisk,
         "GROUP|a/b|a\\b|.|..|group|\\\\ONE|line\nfeed", "GROUP|line\nfeed"},
        {"GROUP", NetEnum::DisplayServer, NetEnum::TypeDisk,
         "\\\\ONE|ONE|\\\\ONE\\SHARE|\\\\|\\\\..|\\\\one", "\\\\ONE"},
        {"\\\\ONE", NetEnum::DisplayShare, NetEnum::TypeDisk,
         "\\\\ONE\\Music|\\\\ONE\\..|\\\\ONE\\a/b|\\\\TWO\\Music|\\\\one\\MUSIC|\\\\one\\Pictures|"
         "\\\\ONE|\\\\ONE\\a\\b",
         "\\\\ONE\\Music|\\\\one\\Pictures"},
        {"\\\\ONE", NetEnum::DisplayShare, NetEnum::TypePrint, "\\\\ONE\\music|\\\\ONE\\Laser",
         "\\\\ONE\\Laser"},
    };
    for (const auto& [node, displayType, type, names, left] : cases) {
        for (const QString& name : Text(names).split(u'|'))
            lan_->Add(Text(node), displayType, name, type);
        EXPECT_EQ(Names(node, type), left);
    }
    EXPECT_EQ(Names("LAN", NetEnum::TypePrint), "none");
    EXPECT_EQ(Names("GROUP", NetEnum::TypeDisk, "Gone"), "none");
}

TEST_F(NetworkTest, LeavesOutHostileEntries) {
    for (const char* name : {"a/b", "", ".", "..", "a\\b", "bell\a"})
        lan_->Entries.push_back({.attributes = 0, .fileName = Text(name)});
    lan_->Entries[2].attributes = FileAttribute::Directory; // ".." isn't one
    lan_->Entries.push_back({.fileName = Text("a") + QChar(u'\0')});
    FindData data;
    const auto find = network_->FindFirst(Text("\\\\ONE\\Music\\A\\*.*"), data);
    ASSERT_TRUE(find);
    EXPECT_EQ(data.fileName, Text("."));
    ASSERT_TRUE(find->FindNext(data));
    EXPECT_EQ(data.fileName, Text("bell\a"));
    EXPECT_FALSE(find->FindNext(data));
    lan_->Entries.resize(1);
    EXPECT_FALSE(network_->FindFirst(Text("\\\\ONE\\Music\\*.*"), data));
}

TEST_F(NetworkTest, AsksTheProviderThatAnswersForTheComputer) {
    EXPECT_EQ(network_->ProviderOf(Text("ONE")), Text("LAN"));
    EXPECT_EQ(network_->ProviderOf(Text("\\\\TWO")), Text("Other"));
    EXPECT_EQ(network_->ProviderOf(Text("THREE")), Text("LAN"))
        << "the one that takes unknown ones";
    EXPECT_EQ(Network({}).ProviderOf(Text("ONE")), QString());
    EXPECT_EQ(network_->Workgroup(Text("\\\\TWO")), Text("of TWO"));
    EXPECT_EQ(network_->Info(Text("\\\\TWO\\S\\file")).length, 7);
    EXPECT_TRUE(network_->CanEnter(Text("\\\\TWO\\S\\")));
    EXPECT_EQ(other_->Asked, (QStringList{Text("\\\\TWO\\S\\file"), Text("\\\\TWO\\S")}));
    // No path that isn't one reaches a provider.
    for (const QString& path :
         Texts({"\\\\TWO", "\\\\TWO\\S\\..\\x", "\\\\TWO\\\\x", "\\\\TWO\\S\\a/b"})) {
        FindData data;
        EXPECT_FALSE(network_->CanEnter(path));
        EXPECT_FALSE(network_->FindFirst(path + QLatin1String("\\*.*"), data));
        EXPECT_FALSE(network_->LocalPath(path));
        ExpectRaised(ErrorNumber::PathNotFound, [&] { return network_->Info(path).length; });
        ExpectRaised(ErrorNumber::PathNotFound, [&] { return network_->Read(path, 0, 1); });
    }
    EXPECT_EQ(other_->Asked.size(), 2);
    EXPECT_TRUE(network_->CanEnter(Text("/"))) << "a local folder";
}

TEST_F(NetworkTest, ReportsWhatCouldNotBeSearched) {
    const auto report = [this] {
        QStringList all;
        for (const NotSearched& one : network_->Report().All())
            all += one.name + u':' + one.reason;
        return all.join(u' ').toStdString();
    };
    FindData first;
    const auto list = [&](const char* folder) {
        return network_->FindFirst(Text(folder) + Text("\\*.*"), first) != nullptr;
    };
    lan_->IsOpen = false;
    EXPECT_FALSE(network_->CanEnter(Text("\\\\ONE\\D"))) << "given up: there is nothing to tell";
    EXPECT_EQ(report(), "");
    lan_->Why = Text("shut");
    EXPECT_FALSE(network_->CanEnter(Text("\\\\ONE\\D\\folder")));
    EXPECT_FALSE(list("\\\\ONE\\C$")) << "tried without being listed";
    EXPECT_EQ(report(), "");
    EXPECT_FALSE(network_->CanEnter(Text("\\\\ONE\\D")));
    EXPECT_EQ(Names("\\\\ONE"), "none");
    EXPECT_EQ(report(), "\\\\ONE\\D:shut");
    lan_->Why = Text("gone");
    EXPECT_FALSE(list("\\\\ONE\\e\\folder")) << "the computer fails in the middle";
    EXPECT_EQ(report(), "\\\\ONE\\D:shut \\\\ONE\\e:gone");
    lan_->IsOpen = true;
    EXPECT_TRUE(network_->CanEnter(Text("\\\\one\\d")));
    EXPECT_EQ(report(), "\\\\ONE\\D:It answers now: search again. \\\\ONE\\e:gone");
    network_->Report().Begin();
    EXPECT_EQ(report(), "");
    lan_->IsInPart = true;
    lan_->Entries = {{.attributes = 0, .fileName = Text("some")}};
    EXPECT_TRUE(list("\\\\ONE\\D\\folder"));
    EXPECT_EQ(report(), "\\\\ONE\\D:A list broke off: the rest isn't searched.");
}

TEST_F(NetworkTest, KnowsThisComputerByTheAddressThatIsKnown) {
    const std::tuple<const char*, quint16, bool> cases[] = {
        {"127.9.8.7", 445, true},   {"::1", 445, true},        {"LocalHost", 445, true},
        {"::1", 4450, false},       {"192.0.2.1", 445, false}, {"2001:db8::1", 445, false},
        {"no.invalid", 445, false}, {"", 445, false}};
    for (const auto& [address, port, isThis] : cases) {
        const SmbHost host{.name = Text("PC"), .address = Text(address), .port = port};
        std::vector<std::unique_ptr<NetworkProvider>> providers;
        providers.push_back(
            std::make_unique<SmbProvider>(Text("LAN"), SmbComputers(std::vector{host})));
        Network network(std::move(providers));
        EXPECT_EQ(network.IsThisComputer(Text("\\\\pc")), isThis) << address;
        EXPECT_TRUE(network.IsThisComputer(Text("\\\\127.0.0.1")));
    }
    EXPECT_FALSE(network_->IsThisComputer(Text("\\\\127.0.0.1"))) << "a name like any other";
}

} // namespace
} // namespace netrove
