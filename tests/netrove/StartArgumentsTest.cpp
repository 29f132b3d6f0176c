#include "netrove/StartArguments.h"

#include "fakes/Text.h"
#include "runtime/ProgramVersion.h"

#include <QDir>
#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(StartArguments, TakesFilesWithTheirFullPaths) {
    const StartArguments start({Text("/a/ü b.nrr"), Text("c.nrr"), Text("--"), Text("--help")});
    const QDir here;
    EXPECT_EQ(start.Files(), (QStringList{Text("/a/ü b.nrr"), here.absoluteFilePath(Text("c.nrr")),
                                          here.absoluteFilePath(Text("--help"))}));
    EXPECT_TRUE(start.Text().isEmpty());
    EXPECT_TRUE(start.Problem().isEmpty());
}

TEST(StartArguments, KnowsTwoOptions) {
    EXPECT_EQ(StartArguments({Text("--version")}).Text(),
              Text("netrove ") + ProgramVersion() + u'\n');
    EXPECT_TRUE(StartArguments({Text("--help")}).Text().startsWith(Text("Usage: netrove ")));
    const StartArguments wrong({Text("-x"), Text("a.nrr")});
    EXPECT_TRUE(wrong.Text().isEmpty());
    EXPECT_TRUE(wrong.Problem().contains(Text("'-x'")));
    EXPECT_TRUE(StartArguments({}).Files().isEmpty());
}

} // namespace
} // namespace netrove
