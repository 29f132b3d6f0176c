#include "platform/LocalFiles.h"

#include "platform/TempTree.h"
#include "runtime/ExpectRaised.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <limits>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace netrove {
namespace {

class LocalFilesTest : public testing::Test {
protected:
    /// The entries of a folder but "." and "..", sorted, each as "name attributes".
    QStringList Entries(const QString& below = {}) {
        QStringList entries;
        FindData data;
        const auto find = files_.FindFirst(tree_.Path(below) + QLatin1String("/*.*"), data);
        if (!find)
            return {QStringLiteral("not listed")};
        do {
            if (data.fileName != QLatin1String(".") && data.fileName != QLatin1String(".."))
                entries += QStringLiteral("%1 %2").arg(data.fileName).arg(data.attributes);
        } while (find->FindNext(data));
        entries.sort();
        return entries;
    }

    /// Files at any depth, as a search walks them.
    int CountFiles(const QString& folder) {
        FindData data;
        const auto find = files_.FindFirst(folder + QLatin1String("/*.*"), data);
        int count = 0;
        for (bool more = find != nullptr; more; more = find->FindNext(data)) {
            if (!data.IsDirectory())
                ++count;
            else if (data.fileName != QLatin1String(".") && data.fileName != QLatin1String(".."))
                count += CountFiles(folder + QLatin1Char('/') + data.fileName);
        }
        return count;
    }

    TempTree tree_;
    LocalFiles files_;
};

TEST_F(LocalFilesTest, ListsAFolderWithItsKinds) {
    tree_.File("song.mp3");
    tree_.File(".hidden");
    tree_.Folder("sub.mp3");
    tree_.Folder("empty");
    EXPECT_EQ(Entries(),
              (QStringList{QStringLiteral(".hidden 34"), QStringLiteral("empty 16"),
                           QStringLiteral("song.mp3 32"), QStringLiteral("sub.mp3 16")}));
    EXPECT_EQ(Entries(QStringLiteral("empty")), QStringList()) << "its dots are listed";
    EXPECT_EQ(Entries(QStringLiteral("missing")), QStringList(QStringLiteral("not listed")));
    EXPECT_EQ(Entries(QStringLiteral("song.mp3")), QStringList(QStringLiteral("not listed")));
    FindData data;
    EXPECT_TRUE(files_.FindFirst(QStringLiteral("/*.*"), data)) << "the top of the file system";
    EXPECT_FALSE(files_.FindFirst(tree_.Path(), data)) << "without *.*";
}

TEST_F(LocalFilesTest, GivesTheSameEntriesAgainOnlyWhileTheyAreInUse) {
    tree_.File("one");
    const QString all = tree_.Path() + QLatin1String("/*.*");
    FindData data;
    auto outer = files_.FindFirst(all, data);
    ASSERT_TRUE(outer);
    const QStringList before = Entries();
    tree_.File("two");
    EXPECT_EQ(Entries(), before);
    outer.reset();
    EXPECT_EQ(Entries().size(), 2);
}

TEST_F(LocalFilesTest, ReachesEveryNameThatItGivesOut) {
    const QList<QByteArray> names = {"plain",
                                     "\xEF\xBB\xBF"
                                     "begins with a mark",
                                     "line\nfeed \x01",
                                     "caf\xE9", // not UTF-8
                                     "\x80\x81\xFF",
                                     "half \xF0\x9F\x8E", // a character cut short
                                     "\xED\xA0\x80",      // half a surrogate pair
                                     "\xF0\x9F\x8E\xB7 saxophone",
                                     "*.*"};
    for (qsizetype number = 0; number < names.size(); ++number)
        tree_.File(names[number] + "/inside", QByteArray(number, 'x'));
    tree_.File("back\\slash");
    FindData data;
    const auto find = files_.FindFirst(tree_.Path() + QLatin1String("/*.*"), data);
    ASSERT_TRUE(find);
    qint64 lengths = 0;
    qsizetype found = 0;
    do {
        EXPECT_FALSE(data.fileName.contains(QLatin1Char('\\')));
        if (data.fileName == QLatin1String(".") || data.fileName == QLatin1String(".."))
            continue;
        ++found;
        const QString folder = tree_.Path(data.fileName);
        EXPECT_TRUE(files_.CanEnter(folder)) << folder.toStdString();
        lengths += files_.Length(folder + QLatin1String("/inside"));
        EXPECT_EQ(Entries(data.fileName), QStringList(QStringLiteral("inside 32")));
    } while (find->FindNext(data));
    EXPECT_EQ(found, names.size());
    EXPECT_EQ(lengths, names.size() * (names.size() - 1) / 2);
}

TEST_F(LocalFilesTest, GivesATextOutOnlyOnce) {
    tree_.File("caf\xE9", "Windows-1252");
    tree_.File("caf\xC3\xA9", "UTF-8");
    EXPECT_EQ(Entries(), QStringList(QStringLiteral("café 32")));
    EXPECT_EQ(files_.Read(tree_.Path(QStringLiteral("café")), 0, 100), "UTF-8");
}

TEST_F(LocalFilesTest, FollowsLinksButNeverRoundInCircles) {
    tree_.File("real/one/file");
    tree_.File("real/two/file");
    tree_.Link("real/one/up", "..");
    tree_.Link("real/one/across", "../two");
    tree_.Link("real/two/across", "../one");
    tree_.Link("real/to file", "one/file");
    tree_.Link("real/nowhere", "missing");
    tree_.Link("real/itself", "itself");
    EXPECT_EQ(Entries(QStringLiteral("real")),
              (QStringList{QStringLiteral("one 16"), QStringLiteral("to file 1056"),
                           QStringLiteral("two 16")}));
    EXPECT_EQ(Entries(QStringLiteral("real/one")),
              (QStringList{QStringLiteral("across 1040"), QStringLiteral("file 32"),
                           QStringLiteral("up 1040")}));
    // Behind a link, another one is no folder.
    EXPECT_EQ(Entries(QStringLiteral("real/one/across")),
              (QStringList{QStringLiteral("across 1024"), QStringLiteral("file 32")}));
    EXPECT_LT(CountFiles(tree_.Path(QStringLiteral("real"))), 20);
    EXPECT_TRUE(files_.CanEnter(tree_.Path(QStringLiteral("real/one/across/across"))));
}

TEST_F(LocalFilesTest, TellsWhatAFileIs) {
    tree_.File("plain.txt", "12345");
    tree_.File(".read only");
    ::chmod(tree_.Bytes(".read only").constData(), 0444);
    tree_.File("huge");
    ASSERT_EQ(::truncate(tree_.Bytes("huge").constData(), Q_INT64_C(3'000'000'000)), 0);
    tree_.File("ancient");
    const timespec times[2] = {{0, UTIME_OMIT}, {std::numeric_limits<qint32>::min(), 0}};
    ::utimensat(AT_FDCWD, tree_.Bytes("ancient").constData(), times, 0);

    EXPECT_EQ(files_.Attributes(tree_.Path(QStringLiteral("plain.txt"))), FileAttribute::Archive);
    EXPECT_EQ(files_.Attributes(tree_.Path(QStringLiteral(".read only"))),
              FileAttribute::ReadOnly | FileAttribute::Hidden | FileAttribute::Archive);
    EXPECT_EQ(files_.Length(tree_.Path(QStringLiteral("huge"))), 3'000'000'000);
    EXPECT_EQ(files_.Modified(tree_.Path(QStringLiteral("ancient"))).toUTC().date().year(), 1901);
    const QDateTime now = QDateTime::currentDateTime();
    EXPECT_LT(files_.Modified(tree_.Path(QStringLiteral("plain.txt"))).secsTo(now), 60);
}

TEST_F(LocalFilesTest, ReadsPieces) {
    tree_.File("digits", "0123456789");
    ASSERT_EQ(::mkfifo(tree_.Bytes("pipe").constData(), 0600), 0);
    struct Case {
        qint64 offset;
        qint64 length;
        const char* expected;
    };
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    for (const Case& test : {Case{0, 3, "012"}, Case{8, 5, "89"}, Case{10, 1, ""},
                             Case{most, 1, ""}, Case{0, most, "0123456789"}, Case{0, -1, ""}})
        EXPECT_EQ(files_.Read(tree_.Path(QStringLiteral("digits")), test.offset, test.length),
                  test.expected)
            << test.offset << " " << test.length;
    ExpectRaised(
        ErrorNumber::PermissionDenied,
        [&] { return files_.Read(tree_.Path(QStringLiteral("pipe")), 0, 1); },
        QStringLiteral("a pipe isn't opened, which would wait for its other end"));
}

TEST_F(LocalFilesTest, SaysWhyAFileCantBeReached) {
    tree_.File("file");
    const auto expect = [&](ErrorNumber number, const QString& path) {
        ExpectRaised(
            number, [&] { return files_.Length(path); }, path);
        ExpectRaised(
            number, [&] { return files_.Read(path, 0, 1); }, path);
        EXPECT_FALSE(files_.CanEnter(path));
        EXPECT_FALSE(files_.LocalPath(path));
    };
    expect(ErrorNumber::FileNotFound, tree_.Path(QStringLiteral("missing")));
    expect(ErrorNumber::PathNotFound, tree_.Path(QStringLiteral("missing/file")));
    expect(ErrorNumber::PathNotFound, tree_.Path(QStringLiteral("file/file")));
    expect(ErrorNumber::PathNotFound, tree_.Path(QString(1, QChar(0xD800))));
    expect(ErrorNumber::PathNotFound,
           tree_.Path(QStringLiteral("file") + QChar(u'\0') + QStringLiteral("tail")));
    EXPECT_FALSE(files_.CanEnter(tree_.Path(QStringLiteral("file"))));
}

TEST_F(LocalFilesTest, StopsAtClosedFolders) {
    tree_.File("closed/file");
    const QString closed = tree_.Path(QStringLiteral("closed"));
    ::chmod(tree_.Bytes("closed").constData(), 0000);
    const uid_t user = geteuid();
    if (user == 0) { // nothing is closed to root
        ASSERT_EQ(::seteuid(65534), 0);
    }
    EXPECT_FALSE(files_.CanEnter(closed));
    EXPECT_EQ(Entries(QStringLiteral("closed")), QStringList(QStringLiteral("not listed")));
    const QString file = closed + QLatin1String("/file");
    ExpectRaised(
        ErrorNumber::PermissionDenied, [&] { return files_.Length(file); }, file);
    ExpectRaised(
        ErrorNumber::PermissionDenied, [&] { return files_.Read(file, 0, 1); }, file);
    ASSERT_EQ(::seteuid(user), 0);
    ::chmod(tree_.Bytes("closed").constData(), 0700);
}

TEST_F(LocalFilesTest, IgnoresCaseOnlyWhereAsked) {
    tree_.File("Music/Café/SONG.MP3", "upper");
    tree_.File("Music/both", "lower");
    tree_.File("Music/BOTH", "upper");
    LocalFiles ignoring(LocalFiles::NameCase::Ignored);
    const QString typed = tree_.Path(QStringLiteral("MUSIC/CAFÉ/song.mp3"));
    EXPECT_EQ(ignoring.Read(typed, 0, 10), "upper");
    EXPECT_EQ(ignoring.LocalPath(typed), tree_.Path(QStringLiteral("Music/Café/SONG.MP3")));
    EXPECT_EQ(ignoring.Read(tree_.Path(QStringLiteral("music/both")), 0, 10), "lower");
    EXPECT_EQ(ignoring.Read(tree_.Path(QStringLiteral("music/BOTH")), 0, 10), "upper");
    EXPECT_TRUE(ignoring.CanEnter(tree_.Path(QStringLiteral("music/café/"))));
    EXPECT_FALSE(files_.LocalPath(typed));
}

} // namespace
} // namespace netrove
