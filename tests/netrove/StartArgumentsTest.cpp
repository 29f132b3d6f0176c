#include "netrove/StartArguments.h"

#include "fakes/Text.h"

#include <QDir>
#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(StartArguments, TakesFilesAndKnowsTwoOptions) {
    const StartArguments start({Text("/a/ü b.nrr"), Text("c.nrr"), Text("--"), Text("--help")});
    const QDir here;
    EXPECT_EQ(start.Files(), (QStringList{Text("/a/ü b.nrr"), here.absoluteFilePath(Text("c.nrr")),
                                          here.absoluteFilePath(Text("--help"))}));
    EXPECT_EQ(start.Text() + start.Problem(), QString());
    EXPECT_TRUE(StartArguments({Text("--help")}).Text().startsWith(Text("Usage: netrove ")));
    EXPECT_TRUE(StartArguments({Text("-x"), Text("a.nrr")}).Problem().contains(Text("'-x'")));
}

} // namespace
} // namespace netrove
