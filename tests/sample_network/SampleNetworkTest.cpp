#include "SampleTree.h"
#include "fakes/Text.h"
#include "platform/TempTree.h"
#include "platform/network/FolderProvider.h"

#include <QDirIterator>
#include <QFileInfo>
#include <gtest/gtest.h>

#include <stdexcept>

#include <sys/stat.h>

namespace netrove {
namespace {

QStringList Files(const QString& folder) {
    QStringList files;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext())
        files += walk.next();
    return files;
}

TEST(SampleNetworkTest, HoldsWhatItsFileSays) {
    const TempTree tree;
    const QString folder = tree.Path(Text("network"));
    sample::MakeSampleTree(folder);
    QFile::remove(folder + QLatin1String("/sample-network.ini"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(SAMPLE_NETWORK_INI),
                            folder + QLatin1String("/sample-network.ini")));
    const FolderProvider provider(Text("Sample"), folder);
    EXPECT_TRUE(provider.Problems().isEmpty())
        << provider.Problems().join(QLatin1Char('\n')).toStdString();

    qint64 onDisk = 0;
    qint64 largest = 0;
    for (const QString& path : Files(folder)) {
        struct stat status {};
        ASSERT_EQ(::stat(path.toUtf8().constData(), &status), 0);
        onDisk += status.st_blocks * 512;
        largest = std::max<qint64>(largest, status.st_size);
    }
    EXPECT_LT(onDisk, 10'000'000);
    EXPECT_GT(largest, Q_INT64_C(0x7FFFFFFF)) << "a length of more than 31 bits";
    sample::MakeSampleTree(folder); // again, over itself
}

TEST(SampleNetworkTest, EmptiesNoFolderOfAnotherKind) {
    const TempTree tree;
    tree.File("mine/letter.txt", "Dear");
    EXPECT_THROW(sample::MakeSampleTree(tree.Path(Text("mine"))), std::runtime_error);
    EXPECT_TRUE(QFileInfo::exists(tree.Path(Text("mine/letter.txt"))));
}

} // namespace
} // namespace netrove
