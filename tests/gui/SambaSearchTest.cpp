#include "controls/TreeView.h"
#include "downloads/copier/FileCopier.h"
#include "fakes/Files.h"
#include "gui/WindowDriver.h"
#include "redirector/NetworkReachTest.h"
#include "redirector/OpenNetwork.h"
#include "smb/SambaServer.h"

namespace netrove {
namespace {

class SambaSearch : public testing::Test, public WindowDriver {};

/// A real server, FILER in the workgroup HOME.
TEST_F(SambaSearch, InTheWindow) {
    if (!SambaServer::IsAvailable())
        GTEST_SKIP() << "needs Samba, and root";
    constexpr int ManyFiles = 3000;
    SambaServer samba;
    ASSERT_TRUE(samba.IsRunning());
    for (const char* path : {"public/one.mp3", "public/Temp/two.mp3", "public/Music [a, b]/Ünï.MP3",
                             "public/readme.txt", "hidden/secret.mp3", "unlisted/deep/x.mp3"})
        samba.AddFile(Text(path), "some content");
    for (int number = 0; number < ManyFiles; ++number)
        samba.AddFile(QStringLiteral("public/many/file %1.dat").arg(number));
    WriteFile(folder.filePath(Text("network.ini")),
              "[LAN]\nType=smb\nFind=No\nComputer1=FILER|HOME|127.0.0.1:" +
                  QByteArray::number(samba.Port()) + "\nComputer2=GONE|HOME|127.0.0.1:1\n");
    const OpenedNetwork opened = OpenNetwork(folder.path());
    newCopyQ = [&] { return std::make_unique<FileCopier>(*opened.network); };
    ProgramServices services = Services(*opened.network);
    services.ahead = opened.network.get();
    services.report = &opened.network->Report();
    window = std::make_unique<frmNetrove>(services);
    Open();
    window->ProgramSettings().ExcNetNodes = Texts({"temp|True|Folder"});
    Search("*.mp3");
    QStringList songs = Rows();
    songs.sort();
    EXPECT_EQ(songs,
              Texts({"\\\\FILER\\PUBLIC\\Music [a, b]\\Ünï.MP3", "\\\\FILER\\PUBLIC\\one.mp3"}));
    EXPECT_EQ(Bar().Text(3), Text("1 computer, 1 share not searched"));

    // FILER is made out to have been silent.
    NetworkReport& report = opened.network->Report();
    const QStringList names = Texts({"\\\\GONE", "\\\\FILER", "\\\\FILER\\NONE"});
    for (const QString& name : names)
        report.NoteSilence(name, QString());
    NetworkReachTest reachTest(*opened.network);
    reachTest.Begin(names);
    EXPECT_TRUE(reachTest.IsAsking(names[2]));
    const auto isOver = [&] { return reachTest.TakeAnswers(), !reachTest.IsRunning(); };
    EXPECT_TRUE(QTest::qWaitFor(isOver, 30000));
    QStringList reasons;
    for (const NotSearched& one : report.All())
        reasons.append(one.reason);
    EXPECT_EQ(reasons, Texts({"It isn't open to this user.",
                              "It refused the connection: it offers no shares.",
                              "It answers now: search again.", "It isn't there any more."}));

    Browse([](frmNWDialog& browser) {
        auto& tree = FindIn<TreeView>(browser, "tvwNetwork");
        for (const char* key : {"??LAN", "??HOME", "??\\\\FILER", "??\\\\GONE"}) {
            tree.SetSelected(Text(key));
            QTest::keyClick(&tree, Qt::Key_Right);
        }
        EXPECT_TRUE(tree.Children(Text("??\\\\GONE")).isEmpty());
        EXPECT_EQ(tree.Image(Text("??\\\\FILER\\PRINTER")), Text("printer"));
        tree.SetSelected(Text("??\\\\FILER\\PUBLIC"));
        QTest::keyClick(&tree, Qt::Key_Return);
    });
    Search("one");
    DownloadAll();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !IsDownloading(); }, 60000));
    EXPECT_EQ(ReadFile(folder.filePath(Text("Downloads/one.mp3"))), "some content");

    // The mouse presses the button at the first yield that sees rows.
    QTimer mouse;
    mouse.callOnTimeout([&] {
        if (Results().Count() > 0 && Find("cmdAbandon").isEnabled())
            Click("cmdAbandon");
    });
    Find<QTabWidget>("SSTab1").setCurrentIndex(0);
    mouse.start(1);
    Search("*.dat");
    mouse.stop();
    EXPECT_TRUE(Results().Count() > 0 && Results().Count() < ManyFiles) << Results().Count();
    ExpectCaption("Aborted, but returned ");

    // What was aborted holds up nothing that comes later.
    dialogs.Inputs = Texts({"filer"});
    Trigger("mnuInpNetNode(0)");
    EXPECT_EQ(StartNodeText(), Text("\\\\FILER"));
    EXPECT_TRUE(window->close());
    window.reset();
}

} // namespace
} // namespace netrove
