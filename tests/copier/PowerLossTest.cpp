#include "copier/CopierDriver.h"
#include "downloads/copier/FileCopy.h"
#include "fakes/Text.h"
#include "platform/TempTree.h"
#include "runtime/RunTimeError.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include <sys/stat.h>

namespace netrove {
namespace {

struct PowerLoss {};

using Random = std::mt19937;

bool IsHeads(Random& random) {
    return random() % 2 == 0;
}

/// Ends with a loss at one of its operations. What was written and not flushed is there then or
/// not, piece by piece; of the changes of names, as a journal keeps them, the last ones are undone.
class LosingDisk : public CopyDisk {
public:
    LosingDisk(Random& random, unsigned operations) : random_(random), left_(operations) {}

    ssize_t Write(int file, QByteArrayView bytes, qint64 offset) override {
        if (!Goes())
            return -1;
        unflushed_[PathOf(file)].emplace_back(offset, bytes.size());
        return CopyDisk::Write(file, bytes, offset);
    }
    int Truncate(int file, qint64 length) override {
        return Goes() ? CopyDisk::Truncate(file, length) : -1;
    }
    int Flush(int file) override {
        if (!Goes())
            return -1;
        unflushed_.erase(PathOf(file));
        return 0;
    }
    int FlushFolder(const QByteArray& /*path*/) override {
        if (!Goes())
            return -1;
        undo_.clear();
        return 0;
    }
    int Rename(const QByteArray& from, const QByteArray& to, bool mayReplace) override {
        if (!Goes())
            return -1;
        const auto old = Content(to);
        const int result = CopyDisk::Rename(from, to, mayReplace);
        if (result == 0) {
            unflushed_[to] = std::exchange(unflushed_[from], {});
            undo_.emplace_back([=, this] {
                static_cast<void>(rename(to.constData(), from.constData()));
                unflushed_[from] = std::exchange(unflushed_[to], {});
                Restore(to, old);
            });
        }
        return result;
    }
    int Remove(const QByteArray& path) override {
        if (!Goes())
            return -1;
        const auto old = Content(path);
        undo_.emplace_back([=] { Restore(path, old); });
        return CopyDisk::Remove(path);
    }
    qint64 MostUnflushed() const override { return most_; }

    /// The power comes back.
    void Lose() {
        for (auto count = random_() % (undo_.size() + 1); count > 0; --count) {
            undo_.back()();
            undo_.pop_back();
        }
        for (const auto& [path, pieces] : unflushed_) {
            QFile file(QFile::decodeName(path));
            for (const auto& [offset, length] : pieces) {
                if (file.size() >= offset + length && IsHeads(random_) &&
                    (file.isOpen() || file.open(QIODevice::ReadWrite))) {
                    file.seek(offset);
                    file.write(QByteArray(length, '\0'));
                }
            }
        }
    }

private:
    bool Goes() {
        if (left_ > 0 && --left_ > 0)
            return true;
        if (std::uncaught_exceptions() == 0)
            throw PowerLoss();
        errno = EIO;
        return false;
    }
    static QByteArray PathOf(int file) {
        return QFile::encodeName(QFile::symLinkTarget(Text("/proc/self/fd/%1").arg(file)));
    }
    static std::optional<QByteArray> Content(const QByteArray& path) {
        const QString name = QFile::decodeName(path);
        return QFile::exists(name) ? std::optional(ReadFile(name)) : std::nullopt;
    }
    static void Restore(const QByteArray& path, const std::optional<QByteArray>& content) {
        QFile file(QFile::decodeName(path));
        if (content && file.open(QIODevice::WriteOnly))
            file.write(*content);
    }

    Random& random_;
    unsigned left_;
    const qint64 most_ = IsHeads(random_) ? 40'000 : 400'000;
    std::map<QByteArray, std::vector<std::pair<qint64, qsizetype>>> unflushed_;
    std::vector<std::function<void()>> undo_;
};

/// Gives its bytes in small pieces, and breaks off now and then.
class Source : public CopySource {
public:
    Source(const QByteArray& content, Random& random) : content_(content), random_(random) {}
    /// Some don't stay as they are while they are copied.
    CopySourceState Inspect() override {
        const bool isChanged = ++inspections_ > 1 && random_() % 4 == 0;
        return {.length = content_.size(), .modified = isChanged ? 2 : 1};
    }
    void Read(qint64 offset, quint32 length, const Sink& sink) override {
        const QByteArrayView bytes = QByteArrayView(content_).sliced(offset, length);
        for (qsizetype at = 0; at < bytes.size(); at += 10'000) {
            if (random_() % 40 == 0)
                throw RunTimeError(ErrorNumber::DeviceIOError);
            sink(bytes.sliced(at, std::min<qsizetype>(10'000, bytes.size() - at)));
        }
    }

private:
    const QByteArray& content_;
    Random& random_;
    int inspections_ = 0;
};

TEST(PowerLossTest, NoCopyIsDoneWithHolesAndNoTargetIsHalf) {
    for (unsigned seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        const TempTree tree;
        const QString target = tree.Path(Text("file"));
        const QByteArray old = IsHeads(random) ? QByteArray("old") : QByteArray();
        if (!old.isEmpty())
            tree.File("file", old);
        const QByteArray content = Pattern(static_cast<qsizetype>(random() % 200'000));
        bool isDone = false;
        while (!isDone) {
            LosingDisk disk(random, 1 + random() % 60);
            Source source(content, random);
            CopyMeter meter;
            try {
                FileCopy(
                    source, Text("source"), {target, true}, meter, [] {}, disk)
                    .Run();
                isDone = true;
            } catch (const PowerLoss&) {
            } catch (const RunTimeError&) {
            }
            disk.Lose();
            const QByteArray there = QFile::exists(target) ? ReadFile(target) : QByteArray();
            ASSERT_TRUE(there == content || (!isDone && there == old));
        }
    }
}

} // namespace
} // namespace netrove
