#include "fakes/Text.h"
#include "platform/ApplicationFolder.h"
#include "platform/InstanceMarker.h"
#include "platform/TempTree.h"

#include <QFileInfo>
#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(SystemTest, AnInstalledProgramKeepsItsFilesWithTheUser) {
    const TempTree prefix;
    const QString programs = prefix.Path(Text("bin"));
    const QByteArray page = "share/netrove/Help/Netrove.html";
    prefix.File("bin/netrove");
    EXPECT_EQ(ApplicationFolder(programs), programs);
    EXPECT_EQ(InstalledFolder(programs), QString());
    EXPECT_EQ(HelpPage(programs, QString()), programs + QLatin1String("/Help/Netrove.html"));

    prefix.File(page);
    const QByteArray before = qgetenv("XDG_DATA_HOME");
    const TempTree user;
    qputenv("XDG_DATA_HOME", user.Path().toUtf8());
    const QString folder = ApplicationFolder(programs);
    qputenv("XDG_DATA_HOME", before);
    EXPECT_EQ(folder, user.Path(Text("netrove")));
    EXPECT_TRUE(QFileInfo(folder).isDir());
    EXPECT_EQ(HelpPage(folder, InstalledFolder(programs)), prefix.Path(QString::fromLatin1(page)));
    user.File("netrove/Help/Netrove.html");
    EXPECT_EQ(HelpPage(folder, InstalledFolder(programs)),
              folder + QLatin1String("/Help/Netrove.html"));
}

} // namespace
} // namespace netrove
