#include "SampleTree.h"
#include "fakes/Text.h"
#include "platform/TempTree.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace netrove {
namespace {

/// What the tree holds is searched by the tests of netrove-find.
TEST(SampleNetworkTest, IsMadeOverItselfButEmptiesNoFolderOfAnotherKind) {
    const TempTree tree;
    for (int round = 0; round < 2; ++round)
        sample::MakeSampleTree(tree.Path(Text("network")));
    tree.File("mine/letter.txt", "Dear");
    EXPECT_THROW(sample::MakeSampleTree(tree.Path(Text("mine"))), std::runtime_error);
    EXPECT_EQ(tree.Content("mine/letter.txt"), "Dear");
}

} // namespace
} // namespace netrove
