#include "downloads/copier/FileCopy.h"

#include "copier/CopierDriver.h"
#include "downloads/copier/PartialFile.h"
#include "fakes/Text.h"
#include "platform/TempTree.h"
#include "runtime/ExpectRaised.h"

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// A source that behaves as it is told.
class FakeSource : public CopySource {
public:
    CopySourceState Inspect() override { return ++inspections_ > 1 && later ? *later : state; }

    void Read(qint64 offset, quint32 length, const Sink& sink) override {
        offsets.push_back(offset);
        if (onRead)
            onRead();
        const qint64 end = std::min({offset + length, failAt, qint64{content.size()}});
        if (end > offset)
            sink(QByteArrayView(content).sliced(offset, end - offset));
        if (offset + length > failAt)
            throw RunTimeError(ErrorNumber::DeviceIOError);
    }

    QByteArray content = Pattern(5'000'000);
    CopySourceState state{.length = 5'000'000, .modified = 1'234'567'890'123};
    std::optional<CopySourceState> later = {};
    qint64 failAt = 1LL << 60;
    std::function<void()> onRead = {};
    std::vector<qint64> offsets = {};

private:
    int inspections_ = 0;
};

class FileCopyTest : public testing::Test {
protected:
    void Copy(FakeSource& source, const QString& target = {}) {
        FileCopy(source, Text("source"), {target.isEmpty() ? target_ : target, mayReplace_}, meter_,
                 [] {})
            .Run();
    }

    void ExpectFailure(ErrorNumber number, FakeSource& source, const QString& target = {}) {
        ExpectRaised(number, [&] { Copy(source, target); });
    }

    QStringList Files() const { return QDir(tree_.Path()).entryList(QDir::Files | QDir::Hidden); }

    TempTree tree_;
    QString target_ = tree_.Path(Text("file"));
    CopyMeter meter_;
    bool mayReplace_ = true;
};

TEST_F(FileCopyTest, TheTargetIsWhatItWasUntilTheCopyIsWhole) {
    tree_.File("file", "old");
    FakeSource source;
    source.onRead = [&] { EXPECT_EQ(ReadFile(target_), "old"); };
    Copy(source);
    EXPECT_EQ(ReadFile(target_), source.content);
    struct stat status {};
    ASSERT_EQ(stat(QFile::encodeName(target_).constData(), &status), 0);
    EXPECT_EQ(status.st_mtim.tv_sec, 1'234'567'890);
    EXPECT_EQ(status.st_mtim.tv_nsec, 123'000'000);
    EXPECT_EQ(Files(), QStringList{Text("file")});
    const CopyProgress progress = meter_.Progress(CopyMeter::Clock::now());
    EXPECT_EQ(progress.copied, progress.length);
}

TEST_F(FileCopyTest, ABrokenCopyOfAnotherStateIsNoBeginning) {
    FakeSource broken;
    broken.failAt = 3'000'000;
    ExpectFailure(ErrorNumber::DeviceIOError, broken);
    FakeSource newer;
    newer.state.modified += 1;
    Copy(newer);
    EXPECT_EQ(newer.offsets.front(), 0);
    EXPECT_EQ(Files(), QStringList{Text("file")}) << "nobody will go on with the old one";
}

TEST_F(FileCopyTest, AFileThatChangesMeanwhileIsNotCopied) {
    tree_.File("file", "old");
    const CopySourceState before = FakeSource().state;
    const CopySourceState touched{.length = before.length, .modified = 1};
    const CopySourceState grown{.length = before.length + 1, .modified = before.modified};
    for (const CopySourceState& state : {touched, grown, before}) {
        FakeSource source;
        source.later = state;
        if (state == before)
            source.content.truncate(4'000'000);
        ExpectFailure(ErrorNumber::FileAlreadyOpen, source);
    }
    EXPECT_EQ(ReadFile(target_), "old");
    EXPECT_EQ(Files(), QStringList{Text("file")});
}

TEST_F(FileCopyTest, TargetsThatCantBeWritten) {
    FakeSource source;
    ExpectFailure(ErrorNumber::PathNotFound, source, tree_.Path(Text("none/file")));
    ExpectFailure(ErrorNumber::PathFileAccessError, source, Text("/sys/netrove-test"));
    tree_.Folder("folder/below");
    ExpectFailure(ErrorNumber::PathFileAccessError, source, tree_.Path(Text("folder")));
    FakeSource endless;
    endless.state.length = 1LL << 62;
    ExpectFailure(ErrorNumber::DiskFull, endless);
    EXPECT_TRUE(endless.offsets.empty());
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(FileCopyTest, OnlyOneAtATimeMakesTheSameCopy) {
    FakeSource first;
    first.onRead = [&] {
        FakeSource second;
        ExpectFailure(ErrorNumber::FileAlreadyOpen, second);
        // The same name from elsewhere is another file.
        FakeSource other;
        other.state.modified = 5;
        Copy(other);
        first.onRead = {};
    };
    Copy(first);
    EXPECT_EQ(ReadFile(target_), first.content);
    EXPECT_EQ(Files(), QStringList{Text("file")});
}

TEST_F(FileCopyTest, ABrokenCopyGoesOnWhereItStopped) {
    for (const QString& target : {target_, tree_.Path(QString(127, u'\u00e9'))}) {
        FakeSource broken;
        broken.failAt = 3'000'000;
        ExpectFailure(ErrorNumber::DeviceIOError, broken, target);
        EXPECT_FALSE(QFile::exists(target));
        EXPECT_EQ(Files().size(), 2) << "a long name has room for both, too";
        FakeSource same;
        Copy(same, target);
        EXPECT_EQ(same.offsets.front(), 3'000'000);
        EXPECT_EQ(ReadFile(target), same.content);
        EXPECT_EQ(Files().size(), 1);
        QFile::remove(target);
    }
}

TEST_F(FileCopyTest, NothingIsReplacedUnlessThatIsAllowed) {
    mayReplace_ = false;
    tree_.Link("file", "nowhere");
    FakeSource source;
    ExpectFailure(ErrorNumber::FileAlreadyExists, source);
    EXPECT_TRUE(source.offsets.empty());
    QFile::remove(target_);
    source.onRead = [&] { tree_.File("file", "newer"); };
    ExpectFailure(ErrorNumber::FileAlreadyExists, source);
    EXPECT_EQ(ReadFile(target_), "newer");
    QFile::remove(target_);
    FakeSource again;
    Copy(again);
    EXPECT_EQ(ReadFile(target_), again.content) << "what had come of it was kept";
    EXPECT_EQ(Files(), QStringList{Text("file")});
}

TEST_F(FileCopyTest, ASmallDisk) {
    tree_.Folder("disk");
    const QByteArray disk = tree_.Bytes("disk");
    if (mount("none", disk.constData(), "tmpfs", 0, "size=8m") != 0)
        GTEST_SKIP() << "only root can mount a small file system";
    const QString target = tree_.Path(Text("disk/file"));
    FakeSource first;
    first.failAt = 2'000'000;
    first.onRead = [&] {
        // The room of a running copy isn't there for another one.
        FakeSource second;
        second.content.truncate(4'000'000);
        second.state.length = 4'000'000;
        ExpectFailure(ErrorNumber::DiskFull, second, tree_.Path(Text("disk/other")));
        EXPECT_TRUE(second.offsets.empty());
        first.onRead = {};
    };
    ExpectFailure(ErrorNumber::DeviceIOError, first, target);
    FakeSource again;
    Copy(again, target);
    EXPECT_GT(again.offsets.front(), 0) << "what was there is kept";
    EXPECT_EQ(QDir(tree_.Path(Text("disk"))).entryList(QDir::Files | QDir::Hidden),
              QStringList{Text("file")});
    umount2(disk.constData(), MNT_DETACH);
}

TEST(CopyMeter, TellsTheRateOfTheLastSeconds) {
    CopyMeter meter;
    CopyMeter::Clock::time_point now;
    meter.Begin(1'000'000, 100'000'000, now);
    for (int second = 0; second < 10; ++second) {
        now += 1s;
        meter.Add(second < 5 ? 1'000'000 : 2'000'000, now);
    }
    const CopyProgress progress = meter.Progress(now);
    EXPECT_EQ(progress.copied, 16'000'000);
    EXPECT_EQ(progress.bytesPerSecond, 2'000'000);
    EXPECT_EQ(meter.Progress(now + CopyMeter::Window).bytesPerSecond, 0) << "a line gone silent";
}

} // namespace
} // namespace netrove
