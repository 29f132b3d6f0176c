#include "downloads/copier/FileCopier.h"
#include "fakes/Files.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "platform/network/OpenNetwork.h"
#include "smb/FaultyProxy.h"
#include "smb/SambaServer.h"

namespace netrove {
namespace {

/// The real queue over the real copier: a server behind a proxy that can break off.
TEST(SambaCopy, WholeFilesArriveAndHalfOnesAreNoFiles) {
    if (!SambaServer::IsAvailable())
        GTEST_SKIP() << "needs Samba, and root";
    SambaServer samba;
    ASSERT_TRUE(samba.IsRunning());
    const QByteArray content(8 << 20, 'x');
    samba.AddFile(Text("public/song, [1].mp3"), content);
    samba.AddFile(Text("public/broken.mp3"), content);
    FaultyProxy proxy(samba.Port());
    TestDesktop desktop;
    const QTemporaryDir& folder = desktop.folder;
    WriteFile(folder.filePath(Text("network.ini")),
              "[LAN]\nType=smb\nFind=No\nComputer1=FILER|HOME|127.0.0.1:" +
                  QByteArray::number(proxy.Port()) + "\n");

    const OpenedNetwork opened = OpenNetwork(folder.path());
    frmNetrove window(desktop.Services(
        *opened.network, [&] { return std::make_unique<FileCopier>(*opened.network); }));
    WindowDriver driver(window);
    driver.Open();
    const ListView& downloads = driver.Downloads();
    const auto copy = [&](const char* pattern) {
        driver.Search(pattern);
        driver.DownloadAll();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !driver.IsDownloading(); }, 60000));
        return downloads.SubItem(downloads.Count(), DownloadItem::Status);
    };
    const QString target = folder.filePath(Text("Downloads/"));

    EXPECT_EQ(copy("song"), Text("Done!"));
    EXPECT_EQ(ReadFile(target + Text("song, [1].mp3")), content);

    driver.Search("broken");
    proxy.CloseAfter(3 << 20);
    EXPECT_TRUE(copy("broken").startsWith(Text("Error (")));
    EXPECT_FALSE(QFile::exists(target + Text("broken.mp3")));
    EXPECT_EQ(downloads.ForeColor(downloads.Count()), QColor(255, 0, 0));
    EXPECT_TRUE(desktop.dialogs.Shown.isEmpty());
    EXPECT_TRUE(window.close());
}

} // namespace
} // namespace netrove
