#include "downloads/copier/FileCopier.h"
#include "fakes/Text.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "platform/network/OpenNetwork.h"
#include "smb/FaultyProxy.h"
#include "smb/SambaServer.h"

#include <gtest/gtest.h>

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
    QFile ini(folder.filePath(Text("network.ini")));
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[LAN]\nType=smb\nFind=No\nComputer1=FILER|HOME|127.0.0.1:" +
              QByteArray::number(proxy.Port()) + "\n");
    ini.close();

    const OpenedNetwork opened = OpenNetwork(folder.path());
    frmNetrove window(desktop.Services(
        *opened.network, [&] { return std::make_unique<FileCopier>(*opened.network); }));
    WindowDriver driver(window);
    driver.Open();
    auto& results = driver.Find<ListView>("lvwResults");
    auto& downloads = driver.Find<ListView>("lvwDownloads");
    const auto copy = [&](const char* pattern) {
        driver.Search(pattern);
        results.setFocus();
        QTest::keyClick(&results, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&results, Qt::Key_Return);
        const int row = downloads.Count();
        const auto isFinal = [&] {
            const QString status = downloads.SubItem(row, 5);
            return status != Text("Pending") && status != Text("Downloading");
        };
        EXPECT_TRUE(QTest::qWaitFor(isFinal, 60000));
        return downloads.SubItem(row, 5);
    };
    const QString target = folder.filePath(Text("Downloads/"));

    EXPECT_EQ(copy("song"), Text("Done!"));
    QFile song(target + Text("song, [1].mp3"));
    ASSERT_TRUE(song.open(QIODevice::ReadOnly));
    EXPECT_EQ(song.readAll(), content);

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
