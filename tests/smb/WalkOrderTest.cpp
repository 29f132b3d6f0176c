#include "platform/network/WalkOrder.h"

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
    bool EntersFolder(const QString& folderPath, qsizetype nodeLength, int depth) const override {
        return depth < 10 && !folderPath.mid(nodeLength).endsWith(Text("\\no\\"));
    }
};

WalkOrder::Start Root(const char* server, const char* share) {
    const QString remoteName = Text("\\\\") + Text(server) + Text("\\") + Text(share);
    return {.request = {.kind = SmbRequest::Kind::ListFolder,
                        .host = Text(server),
                        .share = Text(share)},
            .server = Text(server),
            .key = Text(server) + Text("\\") + Text(share),
            .path = remoteName + Text("\\"),
            .nodeLength = remoteName.size()};
}

SmbList Folders(const QStringList& names, quint32 further = 0) {
    SmbEntries entries;
    for (const QString& name : names)
        entries.push_back({.name = name, .attributes = FileAttribute::Directory | further});
    return {.entries = std::make_shared<const SmbEntries>(std::move(entries))};
}

class WalkOrderTest : public testing::Test {
protected:
    /// Asks for the next place and gives its path; empty where there is none.
    QString Next() {
        const auto question = order.Next(grant);
        if (!question)
            return QString();
        const SmbRequest& request = question->request;
        const QString path = request.host + Text("/") + request.share +
                             (request.path.isEmpty() ? QString() : Text("/") + request.path);
        ids.insert(path, question->id);
        return path;
    }

    QStringList All() {
        QStringList all;
        for (QString path = Next(); !path.isEmpty(); path = Next())
            all += path;
        return all;
    }

    void Answer(const char* path, const SmbList& list) {
        order.Answer(ids.value(Text(path)), list);
    }

    WalkOrder order{std::make_shared<Everywhere>(), {}, {.answers = 8, .bytes = 100'000}};
    WalkOrder::Grant grant = [](const SmbRequest&, std::size_t) { return true; };
    QHash<QString, quint64> ids;
};

TEST_F(WalkOrderTest, TheNearestComesFirst) {
    order.Expect({Root("s", "a"), Root("s", "b"), Root("t", "c")});
    EXPECT_EQ(All(), (QStringList{Text("s/a"), Text("s/b"), Text("t/c")}));
    Answer("t/c", Folders({Text("far")}));
    EXPECT_EQ(Next(), QString()) << "the walk isn't at that computer yet";
    Answer("s/b", Folders({Text("later")}));
    Answer("s/a", Folders({Text("1"), Text("no"), Text(".."), Text("a/b"), Text("2")}));
    EXPECT_EQ(Next(), Text("s/a/1"));
    Answer("s/a/1", Folders({Text("below")}));
    EXPECT_EQ(All(), (QStringList{Text("s/a/1/below"), Text("s/a/2"), Text("s/b/later")}));

    order.Forget(Text("s"));
    EXPECT_EQ(Next(), Text("t/c/far"));
}

TEST_F(WalkOrderTest, TheWalkMayBeElsewhereThanExpected) {
    order.Expect({Root("s", "a"), Root("t", "c")});
    EXPECT_EQ(All(), (QStringList{Text("s/a"), Text("t/c")}));
    Answer("s/a", Folders({Text("1")}));
    Answer("t/c", Folders({Text("2"), Text("3")}));
    EXPECT_EQ(order.Reach(Text("t\\c")), WalkOrder::State::Answered);
    EXPECT_EQ(All(), (QStringList{Text("t/c/2"), Text("t/c/3")}));
    // What others have fills at most half of the room.
    order.Expect({Root("s", "d"), Root("s", "e"), Root("s", "f"), Root("s", "g")});
    EXPECT_EQ(All().size(), 4);
    for (const char* path : {"s/d", "s/e", "s/f", "s/g"})
        Answer(path, Folders({}));
    Answer("t/c/2", Folders({Text("below")}));
    order.Expect({Root("s", "h")});
    EXPECT_EQ(All(), QStringList{Text("t/c/2/below")});
}

TEST_F(WalkOrderTest, WhereAServerIsBusyOthersAreAsked) {
    order.Expect({Root("s", "a"), Root("s", "b"), Root("t", "c")});
    std::size_t wait = 0;
    grant = [&](const SmbRequest& request, std::size_t waiting) {
        wait = std::max(wait, waiting);
        return request.host != Text("s");
    };
    EXPECT_EQ(All(), QStringList{Text("t/c")});
    EXPECT_EQ(wait, 2u);
}

TEST_F(WalkOrderTest, NothingIsAskedWhileMuchWaits) {
    QStringList names;
    for (int at = 0; at < 50; ++at)
        names += Text("n%1").arg(at);
    order.Expect({Root("s", "a")});
    EXPECT_EQ(Next(), Text("s/a"));
    Answer("s/a", Folders(names));
    int asked = 0;
    for (QString path = Next(); !path.isEmpty(); path = Next(), ++asked)
        order.Answer(ids.value(path), Folders({}));
    EXPECT_EQ(asked, 7) << "with the first, as many answers as may wait";
    EXPECT_EQ(order.Take(Text("s\\a\\n0")).status, 0);
    EXPECT_EQ(Next(), Text("s/a/n7"));
    order.Answer(ids.value(Text("s/a/n7")), Folders(QStringList(2000, Text("much"))));
    static_cast<void>(order.Take(Text("s\\a\\n1")));
    EXPECT_EQ(Next(), QString()) << "too many bytes";
    static_cast<void>(order.Take(Text("s\\a\\n7")));
    EXPECT_NE(Next(), QString());
}

TEST_F(WalkOrderTest, LoopsAndEndlessTreesEnd) {
    order = WalkOrder(std::make_shared<Everywhere>());
    order.Expect({Root("s", "a")});
    int folders = 0;
    for (QString path = Next(); !path.isEmpty(); path = Next()) {
        EXPECT_LE(path.count(Text("loop")), 2);
        order.Answer(ids.value(path), Folders({Text("loop")}, FileAttribute::ReparsePoint));
        ++folders;
    }
    EXPECT_EQ(folders, 3);

    order.Expect({Root("t", "b")});
    order.Forget(Text("s"));
    folders = 0;
    for (QString path = Next(); !path.isEmpty(); path = Next(), ++folders)
        order.Answer(ids.value(path), Folders({Text("x"), Text("y")}));
    EXPECT_GE(folders, 1000);
    EXPECT_LE(folders, 1001);
}

TEST_F(WalkOrderTest, WhatIsKnownIsntAskedButWhatLiesBelow) {
    order = WalkOrder(std::make_shared<Everywhere>(),
                      {{Text("s\\a"), Folders({Text("1"), Text("2")}).entries},
                       {Text("s\\a\\1"), Folders({Text("below")}).entries}});
    order.Expect({Root("s", "a")});
    EXPECT_EQ(All(), (QStringList{Text("s/a/1/below"), Text("s/a/2")}));
}

TEST_F(WalkOrderTest, TheSharesOfAListFollow) {
    order.Expect({{.request = {.kind = SmbRequest::Kind::ListShares, .host = Text("s")},
                   .server = Text("s"),
                   .key = Text("s"),
                   .path = Text("\\\\s")},
                  Root("s", "C$"),
                  Root("t", "far")});
    EXPECT_EQ(All(), (QStringList{Text("s/"), Text("s/C$"), Text("t/far")}));
    order.Answer(ids.value(Text("s/")),
                 {.entries = std::make_shared<const SmbEntries>(),
                  .shares = {{.name = Text("DATA")},
                             {.kind = SmbShare::Kind::Printer, .name = Text("LASER")},
                             {.name = Text("no")},
                             {.name = Text("a\\b")},
                             {.name = Text("data")}}});
    EXPECT_EQ(All(), QStringList{Text("s/DATA")});
}

} // namespace
} // namespace netrove
