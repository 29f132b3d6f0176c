#include "platform/LocalFiles.h"

#include "fakes/Text.h"
#include "platform/TempTree.h"
#include "runtime/ExpectRaised.h"

#include <gtest/gtest.h>

#include <limits>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace netrove {
namespace {

class LocalFilesTest : public testing::Test {
protected:
    [[nodiscard]] QString Path(const char* below) const { return tree_.Path(Text(below)); }

    /// The entries of a folder but "." and "..", sorted, each as "name attributes", joined by "|".
    std::string Entries(const QString& below = {}) {
        FindData data;
        const auto find = files_.FindFirst(tree_.Path(below) + Text("/*.*"), data);
        QStringList texts;
        for (bool more = find != nullptr; more; more = find->FindNext(data)) {
            if (data.fileName != Text(".") && data.fileName != Text(".."))
                texts += Text("%1 %2").arg(data.fileName).arg(data.attributes);
        }
        texts.sort();
        return find ? texts.join(u'|').toStdString() : "not listed";
    }
    std::string Entries(const char* below) { return Entries(Text(below)); }

    TempTree tree_;
    LocalFiles files_;
};

TEST_F(LocalFilesTest, ListsAFolderWithItsKinds) {
    tree_.File("song.mp3");
    tree_.File(".hidden");
    tree_.Folder("sub.mp3");
    tree_.Folder("empty");
    EXPECT_EQ(Entries(), ".hidden 34|empty 16|song.mp3 32|sub.mp3 16");
    EXPECT_EQ(Entries("empty"), "") << "its dots are listed";
    EXPECT_EQ(Entries("missing"), "not listed");
    EXPECT_EQ(Entries("song.mp3"), "not listed");
    FindData data;
    EXPECT_TRUE(files_.FindFirst(Text("/*.*"), data)) << "the top of the file system";
    EXPECT_FALSE(files_.FindFirst(tree_.Path(), data)) << "without *.*";
}

TEST_F(LocalFilesTest, GivesTheSameEntriesAgainOnlyWhileTheyAreInUse) {
    tree_.File("one");
    FindData data;
    auto outer = files_.FindFirst(Path("*.*"), data);
    ASSERT_TRUE(outer);
    const std::string before = Entries();
    tree_.File("two");
    EXPECT_EQ(Entries(), before);
    outer.reset();
    EXPECT_EQ(Entries(), "one 32|two 32");
}

TEST_F(LocalFilesTest, ReachesEveryNameThatItGivesOut) {
    // Some begin with a mark, aren't UTF-8, are cut short, or hold half a surrogate pair.
    const QByteArrayList names = {
        "plain",        "\xEF\xBB\xBF mark", "line\nfeed \x01", "caf\xE9",
        "\x80\x81\xFF", "half \xF0\x9F\x8E", "\xED\xA0\x80",    "\xF0\x9F\x8E\xB7 saxophone",
        "*.*"};
    for (qsizetype number = 0; number < names.size(); ++number)
        tree_.File(names[number] + "/inside", QByteArray(number, 'x'));
    tree_.File("back\\slash");
    const auto found = QString::fromStdString(Entries()).split(u'|');
    EXPECT_EQ(found.size(), names.size());
    qint64 lengths = 0;
    for (const QString& entry : found) {
        const QString name = entry.chopped(3); // a folder has the number 16
        EXPECT_FALSE(name.contains(u'\\'));
        EXPECT_TRUE(files_.CanEnter(tree_.Path(name))) << entry.toStdString();
        lengths += files_.Info(tree_.Path(name) + Text("/inside")).length;
        EXPECT_EQ(Entries(name), "inside 32");
    }
    EXPECT_EQ(lengths, names.size() * (names.size() - 1) / 2);
}

TEST_F(LocalFilesTest, GivesATextOutOnlyOnce) {
    tree_.File("caf\xE9", "Windows-1252");
    tree_.File("caf\xC3\xA9", "UTF-8");
    EXPECT_EQ(Entries(), "café 32");
    EXPECT_EQ(files_.Read(Path("café"), 0, 100), "UTF-8");
}

/// Those that go round are tried on a FolderProvider's random trees.
TEST_F(LocalFilesTest, LinksLeadToWhatTheyStandFor) {
    tree_.File("real/one/file");
    for (const auto& [link, target] : {std::pair("one/up", ".."),
                                       {"to folder", "one"},
                                       {"to file", "one/file"},
                                       {"nowhere", "missing"},
                                       {"itself", "itself"}})
        tree_.Link(QByteArray("real/") + link, target);
    EXPECT_EQ(Entries("real"), "one 16|to file 1056|to folder 1040");
    EXPECT_EQ(Entries("real/one"), "file 32|up 1040");
    EXPECT_TRUE(files_.CanEnter(Path("real/one/up/one")));
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

    EXPECT_EQ(files_.Info(Path("plain.txt")).attributes, FileAttribute::Archive);
    EXPECT_EQ(files_.Info(Path(".read only")).attributes,
              FileAttribute::ReadOnly | FileAttribute::Hidden | FileAttribute::Archive);
    EXPECT_EQ(files_.Info(Path("huge")).length, 3'000'000'000);
    EXPECT_EQ(files_.Info(Path("ancient")).modified.toUTC().date().year(), 1901);
    EXPECT_LT(files_.Info(Path("plain.txt")).modified.secsTo(QDateTime::currentDateTime()), 60);
}

TEST_F(LocalFilesTest, ReadsPieces) {
    tree_.File("digits", "0123456789");
    ASSERT_EQ(::mkfifo(tree_.Bytes("pipe").constData(), 0600), 0);
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    const struct {
        qint64 offset;
        qint64 length;
        const char* expected;
    } cases[] = {{0, 3, "012"},           {8, 5, "89"}, {10, 1, ""}, {most, 1, ""},
                 {0, most, "0123456789"}, {0, -1, ""}};
    for (const auto& [offset, length, expected] : cases)
        EXPECT_EQ(files_.Read(Path("digits"), offset, length), expected) << offset;
    // A pipe isn't opened, which would wait for its other end.
    ExpectRaised(ErrorNumber::PermissionDenied, [&] { return files_.Read(Path("pipe"), 0, 1); });
}

TEST_F(LocalFilesTest, SaysWhyAFileCantBeReached) {
    tree_.File("file");
    tree_.File("closed/file");
    ::chmod(tree_.Bytes("closed").constData(), 0000);
    const uid_t user = geteuid();
    if (user == 0) { // nothing is closed to root
        ::chmod(tree_.Bytes("").constData(), 0755);
        ASSERT_EQ(::seteuid(65534), 0);
    }
    const std::pair<QString, ErrorNumber> cases[] = {
        {Text("missing"), ErrorNumber::FileNotFound},
        {Text("missing/file"), ErrorNumber::PathNotFound},
        {Text("file/file"), ErrorNumber::PathNotFound},
        {QString(1, QChar(0xD800)), ErrorNumber::PathNotFound},
        {Text("file") + QChar(u'\0') + Text("tail"), ErrorNumber::PathNotFound},
        {Text("closed/file"), ErrorNumber::PermissionDenied},
    };
    for (const auto& [name, number] : cases) {
        SCOPED_TRACE(name.toStdString());
        const QString path = tree_.Path(name);
        ExpectRaised(number, [&] { return files_.Info(path).length; });
        ExpectRaised(number, [&] { return files_.Read(path, 0, 1); });
        EXPECT_FALSE(files_.CanEnter(path));
        EXPECT_FALSE(files_.LocalPath(path));
    }
    EXPECT_FALSE(files_.CanEnter(Path("file")));
    EXPECT_FALSE(files_.CanEnter(Path("closed")));
    EXPECT_EQ(Entries("closed"), "not listed");
    ASSERT_EQ(::seteuid(user), 0);
    ::chmod(tree_.Bytes("closed").constData(), 0700);
}

} // namespace
} // namespace netrove
