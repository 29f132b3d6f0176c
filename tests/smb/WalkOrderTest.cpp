#include "redirector/WalkOrder.h"

#include "fakes/Text.h"
#include "platform/Files.h"
#include "smb/OpenWalk.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

/// Goes everywhere but into folders named "no", at most nine levels deep.
class Everywhere : public OpenWalk {
public:
    bool EntersShare(const QString& remoteName) const override {
        return !remoteName.endsWith(Text("\\no"));
    }
    bool ReadsFile(const QString& name) const override { return name.endsWith(Text(".mp3")); }
    bool EntersFolder(const QString& folderPath, qsizetype nodeLength, int depth) const override {
        return depth < 10 && !folderPath.mid(nodeLength).endsWith(Text("\\no\\"));
    }
};

WalkOrder::Start Root(const char* server, const char* share) {
    const QString key = Text(server) + u'\\' + Text(share);
    return {.request = {.kind = SmbRequest::Kind::ListFolder,
                        .host = Text(server),
                        .share = Text(share)},
            .server = Text(server),
            .key = key,
            .path = Text("\\\\") + key + u'\\',
            .nodeLength = key.size() + 2};
}

/// Folders, whose names are separated by blanks.
SmbEntries Folders(const QByteArray& names) {
    SmbEntries entries;
    for (const QString& name : QString::fromUtf8(names).split(u' ', Qt::SkipEmptyParts))
        entries.push_back({.name = name, .attributes = FileAttribute::Directory});
    return entries;
}

class WalkOrderTest : public testing::Test {
protected:
    /// Asks for the next place and gives its path; empty where there is none.
    QString Next() {
        const auto question = order.Next(grant);
        if (!question)
            return QString();
        const SmbRequest& request = question->request;
        const QString path = request.host + u'/' + request.share +
                             (request.path.isEmpty() ? QString() : u'/' + request.path);
        ids.insert(path, question->id);
        return path;
    }

    /// All that may be asked for now, joined by blanks.
    std::string All() {
        QStringList all;
        for (QString path = Next(); !path.isEmpty(); path = Next())
            all += path;
        return all.join(u' ').toStdString();
    }

    void Answer(const QString& path, const SmbEntries& entries) {
        order.Answer(ids.value(path), {.entries = std::make_shared<const SmbEntries>(entries)});
    }
    void Answer(const char* path, const SmbEntries& entries) { Answer(Text(path), entries); }
    void Take(const char* key) { EXPECT_EQ(order.Take(Text(key)).status, 0); }

    WalkOrder order{std::make_shared<Everywhere>(), {.answers = 8, .bytes = 100'000}};
    WalkOrder::Grant grant = [](const SmbRequest&, std::size_t) { return true; };
    QHash<QString, quint64> ids;
};

TEST_F(WalkOrderTest, TheNearestComesFirst) {
    order.Expect({Root("s", "a"), Root("s", "b"), Root("t", "c")});
    const auto any = std::exchange(
        grant, [](const SmbRequest& request, std::size_t) { return request.host != Text("s"); });
    EXPECT_EQ(All(), "t/c") << "the nearest server is busy";
    grant = any;
    EXPECT_EQ(All(), "s/a s/b");
    Answer("t/c", Folders("far"));
    EXPECT_EQ(Next(), QString()) << "the walk isn't at that computer yet";
    Answer("s/b", Folders("later"));
    Answer("s/a", Folders("1 no .. a/b 2"));
    EXPECT_EQ(Next(), Text("s/a/1"));
    Answer("s/a/1", Folders("below"));
    EXPECT_EQ(All(), "s/a/1/below s/a/2 s/b/later");

    order.Forget(Text("s"));
    EXPECT_EQ(Next(), Text("t/c/far"));
}

TEST_F(WalkOrderTest, AComputerThatIsFoundElsewhereIsAskedThere) {
    order.Expect({Root("s", "a"), Root("t", "b")});
    EXPECT_EQ(All(), "s/a t/b");
    WalkOrder::Start moved = Root("s", "a");
    moved.server = moved.request.host = Text("new");
    order.Expect({moved, Root("t", "b")});
    EXPECT_EQ(All(), "new/a");
}

TEST_F(WalkOrderTest, NothingIsAskedWhileMuchWaits) {
    QByteArray names;
    for (int at = 0; at < 50; ++at)
        names += " n" + QByteArray::number(at);
    order.Expect({Root("s", "a")});
    EXPECT_EQ(Next(), Text("s/a"));
    Answer("s/a", Folders(names));
    int asked = 0;
    for (QString path = Next(); !path.isEmpty(); path = Next(), ++asked)
        Answer(path, {});
    EXPECT_EQ(asked, 7) << "with the first, as many answers as may wait";
    Take("s\\a\\n0");
    EXPECT_EQ(Next(), Text("s/a/n7"));
    Answer("s/a/n7", Folders(QByteArray("much ").repeated(2000)));
    Take("s\\a\\n1");
    EXPECT_EQ(Next(), QString()) << "too many bytes";
    Take("s\\a\\n7");
    EXPECT_NE(Next(), QString());
}

TEST_F(WalkOrderTest, EndlessTreesEnd) {
    order = WalkOrder(std::make_shared<Everywhere>());
    order.Expect({Root("s", "a")});
    int folders = 0;
    for (QString path = Next(); !path.isEmpty(); path = Next(), ++folders)
        Answer(path, Folders("x y"));
    EXPECT_NEAR(folders, 1000, 1);
}

TEST_F(WalkOrderTest, FilesAreReadBeforeTheSubfolders) {
    SmbEntries entries = Folders("1 2");
    for (const char* name : {"a.mp3", "b.mp3", "a/c.mp3", "d.txt", "e.mp3", "f.mp3"})
        entries.push_back({.name = Text(name), .length = 9});
    entries.push_back({.name = Text("empty.mp3")});
    order.Expect({Root("s", "a"), Root("t", "c")});
    EXPECT_EQ(All(), "s/a t/c");
    Answer("t/c", entries);
    EXPECT_EQ(Next(), QString()) << "the walk isn't at that computer yet";
    Answer("s/a", entries);
    Take("s\\a");
    const auto question = order.Next(grant);
    ASSERT_TRUE(question && question->request.kind == SmbRequest::Kind::Read);
    EXPECT_EQ(question->path, Text("\\\\s\\a\\a.mp3"));
    order.Answer(question->id, {.pieces = {{.offset = 0, .asked = 9, .bytes = "123456789"}}});

    // The walk passes over the first, and comes to one whose turn hasn't come.
    EXPECT_EQ(order.Reach(Text("s\\a\\e.mp3\\")), WalkOrder::State::Waiting);
    EXPECT_EQ(order.Reach(Text("s\\a\\a.mp3\\")), WalkOrder::State::Unknown);
    order.Forget(Text("s\\a\\e.mp3\\"));
    EXPECT_EQ(All(), "s/a/f.mp3 s/a/1 s/a/2");

    // In the subfolder, the files above it are behind.
    EXPECT_EQ(order.Reach(Text("s\\a\\1")), WalkOrder::State::Asked);
    EXPECT_EQ(order.Reach(Text("s\\a\\f.mp3\\")), WalkOrder::State::Unknown);
}

} // namespace
} // namespace netrove
