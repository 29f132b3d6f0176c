#include "SampleTree.h"
#include "fakes/Text.h"
#include "platform/TempTree.h"
#include "redirector/FolderProvider.h"

#include <QDirIterator>
#include <QFileInfo>
#include <gtest/gtest.h>

#include <stdexcept>

namespace netrove {
namespace {

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

    qint64 largest = 0;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext())
        largest = std::max(largest, walk.nextFileInfo().size());
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
