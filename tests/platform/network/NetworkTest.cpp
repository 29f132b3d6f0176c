#include "platform/network/Network.h"

#include "fakes/ListedFind.h"
#include "runtime/ExpectRaised.h"

#include <QHash>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// Answers what it was told to, however hostile.
class FakeProvider : public NetworkProvider {
public:
    explicit FakeProvider(const QString& name, QStringList servers = {}, bool takesUnknown = false)
        : NetworkProvider(name), servers_(std::move(servers)), takesUnknown_(takesUnknown) {}

    void Add(const QString& node, qint32 displayType, const QString& remoteName,
             qint32 type = NetEnum::TypeDisk) {
        lists_[{node, type}].push_back(Record(displayType, remoteName, {}, type));
    }
    std::vector<FindData> Entries;
    QStringList Asked;

    std::optional<std::vector<NetRecord>> List(const NetRecord& node, qint32 type) override {
        const auto found = lists_.constFind({node.lpRemoteName, type});
        return found == lists_.constEnd() ? std::nullopt : std::optional(*found);
    }
    bool Knows(const QString& server) override { return servers_.contains(server); }
    bool TakesUnknown() const override { return takesUnknown_; }
    QString Workgroup(const QString& server) override { return QLatin1String("of ") + server; }
    std::unique_ptr<FileFind> FindFirst(const UncPath& path, FindData& first) override {
        Asked += path.Text();
        auto find = std::make_unique<ListedFind>(Entries);
        return find->FindNext(first) ? std::move(find) : nullptr;
    }
    bool CanEnter(const UncPath& path) override {
        Asked += path.Text();
        return true;
    }
    FileInfo Info(const UncPath& path) override {
        Asked += path.Text();
        return {.length = 7};
    }
    QByteArray Read(const UncPath&, qint64, qint64) override { return "content"; }
    std::optional<QString> LocalPath(const UncPath&) override { return QStringLiteral("/here"); }

private:
    QStringList servers_;
    bool takesUnknown_;
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

    /// The remote names below a node, or "none" where its list can't be opened.
    QStringList Names(const QString& provider, const QString& node,
                      qint32 type = NetEnum::TypeDisk) {
        NetEnum::Handle handle = 0;
        const NetRecord start{.lpRemoteName = node, .lpProvider = provider};
        if (network_->OpenEnum(NetEnum::ScopeGlobalNet, type, 0, start, handle) != NetEnum::NoError)
            return {QStringLiteral("none")};
        QStringList names;
        std::vector<NetRecord> records;
        quint32 size = 1 << 20;
        for (;;) {
            qint32 count = NetEnum::CountAll;
            if (network_->EnumResource(handle, count, records, size) != NetEnum::NoError)
                break;
            for (const NetRecord& record : records)
                names += record.lpRemoteName;
        }
        network_->CloseEnum(handle);
        return names;
    }

    FakeProvider* lan_ = new FakeProvider(QStringLiteral("LAN"), {QStringLiteral("ONE")}, true);
    FakeProvider* other_ =
        new FakeProvider(QStringLiteral("Other"), {QStringLiteral("ONE"), QStringLiteral("TWO")});
    std::unique_ptr<Network> network_;
};

TEST_F(NetworkTest, FetchesAListPieceByPiece) {
    QStringList expected;
    for (int number = 0; number < 40; ++number) {
        expected += QStringLiteral("GROUP%1").arg(number).repeated(1 + number % 7);
        lan_->Add(QStringLiteral("LAN"), NetEnum::DisplayDomain, expected.last());
    }
    NetEnum::Handle handle = 0;
    const NetRecord start{.lpRemoteName = QStringLiteral("LAN"),
                          .lpProvider = QStringLiteral("LAN")};
    ASSERT_EQ(network_->OpenEnum(NetEnum::ScopeGlobalNet, NetEnum::TypeDisk, 0, start, handle),
              NetEnum::NoError);
    QStringList names;
    std::vector<NetRecord> records;
    quint32 size = 10;
    for (int call = 0;; ++call) {
        ASSERT_LT(call, 200);
        qint32 count = call % 5 == 4 ? 1 : NetEnum::CountAll;
        const quint32 oldSize = size;
        const quint32 result = network_->EnumResource(handle, count, records, size);
        ASSERT_EQ(count, static_cast<qint32>(records.size()));
        if (result == NetEnum::MoreData) {
            // 32 bytes, the name and the provider's, and four zeros.
            ASSERT_GT(size, oldSize);
            EXPECT_EQ(size, 32U + static_cast<quint32>(expected[names.size()].size()) + 3U + 4U);
            continue;
        }
        if (result != NetEnum::NoError) {
            EXPECT_EQ(result, NetEnum::NoMoreItems);
            break;
        }
        ASSERT_GT(count, 0);
        for (const NetRecord& record : records)
            names += record.lpRemoteName;
    }
    EXPECT_EQ(names, expected);
    network_->CloseEnum(handle);
    qint32 count = NetEnum::CountAll;
    EXPECT_EQ(network_->EnumResource(handle, count, records, size), NetEnum::InvalidHandle);
}

TEST_F(NetworkTest, ListsItsProvidersAtTheRoot) {
    EXPECT_EQ(Names({}, {}), (QStringList{QStringLiteral("LAN"), QStringLiteral("Other")}));
    EXPECT_EQ(Names({}, {}, NetEnum::TypePrint), QStringList());
    EXPECT_EQ(Names(QStringLiteral("LAN"), QStringLiteral("LAN")),
              QStringList(QStringLiteral("none")));
    EXPECT_EQ(Names(QStringLiteral("Gone"), QStringLiteral("GROUP")),
              QStringList(QStringLiteral("none")));
}

TEST_F(NetworkTest, LeavesOutHostileNodes) {
    const QString server = QStringLiteral("\\\\ONE");
    for (const QString& name :
         {QStringLiteral("GROUP"), QStringLiteral("a/b"), QStringLiteral("a\\b"), QString(),
          QStringLiteral("."), QStringLiteral(".."), QString(1, QChar(u'\0')),
          QStringLiteral("group"), QString(256, u'x'), QStringLiteral("\\\\ONE"),
          QStringLiteral("line\nfeed")})
        lan_->Add(QStringLiteral("LAN"), NetEnum::DisplayDomain, name);
    for (const QString& name :
         {server, QStringLiteral("ONE"), QStringLiteral("\\\\ONE\\SHARE"), QStringLiteral("\\\\"),
          QStringLiteral("\\\\.."), QStringLiteral("\\\\one")})
        lan_->Add(QStringLiteral("GROUP"), NetEnum::DisplayServer, name);
    for (const QString& name :
         {QStringLiteral("\\\\ONE\\Music"), QStringLiteral("\\\\ONE\\.."),
          QStringLiteral("\\\\ONE\\a/b"), QStringLiteral("\\\\TWO\\Music"),
          QStringLiteral("\\\\one\\MUSIC"), QStringLiteral("\\\\one\\Pictures"), server,
          QStringLiteral("\\\\ONE\\a\\b")})
        lan_->Add(server, NetEnum::DisplayShare, name);
    for (const QString& name : {QStringLiteral("\\\\ONE\\music"), QStringLiteral("\\\\ONE\\Laser")})
        lan_->Add(server, NetEnum::DisplayShare, name, NetEnum::TypePrint);

    EXPECT_EQ(Names(QStringLiteral("LAN"), QStringLiteral("LAN")),
              (QStringList{QStringLiteral("GROUP"), QStringLiteral("line\nfeed")}));
    EXPECT_EQ(Names(QStringLiteral("LAN"), QStringLiteral("GROUP")), QStringList(server));
    EXPECT_EQ(Names(QStringLiteral("LAN"), server),
              (QStringList{QStringLiteral("\\\\ONE\\Music"), QStringLiteral("\\\\one\\Pictures")}));
    EXPECT_EQ(Names(QStringLiteral("LAN"), server, NetEnum::TypePrint),
              QStringList(QStringLiteral("\\\\ONE\\Laser")));
}

TEST_F(NetworkTest, LeavesOutHostileEntries) {
    const auto file = [](const QString& name) {
        return FindData{.attributes = 0, .fileName = name};
    };
    const auto folder = [](const QString& name) {
        return FindData{.attributes = FileAttribute::Directory, .fileName = name};
    };
    lan_->Entries = {file(QStringLiteral("a/b")),
                     file({}),
                     folder(QStringLiteral(".")),
                     file(QStringLiteral("..")),
                     file(QStringLiteral("a\\b")),
                     file(QStringLiteral("bell\a")),
                     folder(QStringLiteral("a") + QChar(u'\0') + QStringLiteral("b"))};
    FindData data;
    const auto find = network_->FindFirst(QStringLiteral("\\\\ONE\\Music\\A\\*.*"), data);
    ASSERT_TRUE(find);
    EXPECT_EQ(data.fileName, QStringLiteral("."));
    ASSERT_TRUE(find->FindNext(data));
    EXPECT_EQ(data.fileName, QStringLiteral("bell\a"));
    EXPECT_FALSE(find->FindNext(data));
    lan_->Entries = {file(QStringLiteral("a/b"))};
    EXPECT_FALSE(network_->FindFirst(QStringLiteral("\\\\ONE\\Music\\*.*"), data));
}

TEST_F(NetworkTest, AsksTheProviderThatAnswersForTheComputer) {
    EXPECT_EQ(network_->ProviderOf(QStringLiteral("ONE")), QStringLiteral("LAN"));
    EXPECT_EQ(network_->ProviderOf(QStringLiteral("\\\\TWO")), QStringLiteral("Other"));
    EXPECT_EQ(network_->ProviderOf(QStringLiteral("THREE")), QStringLiteral("LAN"))
        << "the one that takes unknown ones";
    EXPECT_EQ(Network({}).ProviderOf(QStringLiteral("ONE")), QString());
    EXPECT_EQ(network_->Workgroup(QStringLiteral("\\\\TWO")), QStringLiteral("of TWO"));
    EXPECT_EQ(network_->Length(QStringLiteral("\\\\TWO\\S\\file")), 7);
    EXPECT_TRUE(network_->CanEnter(QStringLiteral("\\\\TWO\\S\\")));
    EXPECT_EQ(other_->Asked,
              (QStringList{QStringLiteral("\\\\TWO\\S\\file"), QStringLiteral("\\\\TWO\\S")}));
    // No path that isn't one reaches a provider.
    for (const QString& path :
         {QStringLiteral("\\\\TWO"), QStringLiteral("\\\\TWO\\S\\..\\x"),
          QStringLiteral("\\\\TWO\\\\x"), QStringLiteral("\\\\TWO\\S\\a/b")}) {
        FindData data;
        EXPECT_FALSE(network_->CanEnter(path));
        EXPECT_FALSE(network_->FindFirst(path + QLatin1String("\\*.*"), data));
        EXPECT_FALSE(network_->LocalPath(path));
        ExpectRaised(
            ErrorNumber::PathNotFound, [&] { return network_->Length(path); }, path);
        ExpectRaised(
            ErrorNumber::PathNotFound, [&] { return network_->Read(path, 0, 1); }, path);
    }
    EXPECT_EQ(other_->Asked.size(), 2);
    EXPECT_TRUE(network_->CanEnter(QStringLiteral("/"))) << "a local folder";
}

TEST_F(NetworkTest, MakesRecordsForTypedPaths) {
    struct Case {
        QString path;
        qint32 displayType;
        qint32 usage;
    };
    for (const Case& test :
         {Case{QStringLiteral("\\\\TWO"), 2, NetEnum::UsageContainer},
          Case{QStringLiteral("\\\\TWO\\C$"), 3, NetEnum::UsageConnectable},
          Case{QStringLiteral("\\\\TWO\\C$\\Music"), 9, NetEnum::UsageConnectable}}) {
        const auto record = network_->Record(*UncPath::Parse(test.path));
        ASSERT_TRUE(record) << test.path.toStdString();
        EXPECT_EQ(record->dwDisplayType, test.displayType);
        EXPECT_EQ(record->dwUsage, test.usage);
        EXPECT_EQ(record->lpRemoteName, test.path);
        EXPECT_EQ(record->lpProvider, QStringLiteral("Other"));
    }
    const auto path = UncPath::Parse(QStringLiteral("\\\\TWO\\S\\") + QString(250, u'x'));
    EXPECT_FALSE(network_->Record(*path)) << "a node would cut it";
    EXPECT_FALSE(Network({}).Record(*UncPath::Parse(QStringLiteral("\\\\TWO"))));
}

} // namespace
} // namespace netrove
