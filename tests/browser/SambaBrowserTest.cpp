#include "browser/frmNWDialog.h"
#include "fakes/DesktopFakes.h"
#include "fakes/Files.h"
#include "fakes/Text.h"
#include "platform/desktop/WindowYield.h"
#include "platform/network/OpenNetwork.h"
#include "smb/SambaServer.h"

#include <QTest>

namespace netrove {
namespace {

/// A real server, FILER in the workgroup HOME, and beside it GONE, where nobody answers.
TEST(SambaBrowser, ShowsARealServer) {
    if (!SambaServer::IsAvailable())
        GTEST_SKIP() << "needs Samba, and root";
    const SambaServer samba;
    ASSERT_TRUE(samba.IsRunning());
    const QTemporaryDir folder;
    WriteFile(folder.filePath(Text("network.ini")),
              "[LAN]\nType=smb\nFind=No\nComputer1=FILER|HOME|127.0.0.1:" +
                  QByteArray::number(samba.Port()) + "\nComputer2=GONE|HOME|127.0.0.1:1\n");
    const OpenedNetwork opened = OpenNetwork(folder.path());
    Settings settings;
    settings.ExcNetNodes = {Text("public|True|Folder")};
    ExclusionLists exclusions;
    exclusions.ParseNetNodes(settings);
    TroubleshootingLog log(settings);
    RecordedDialogs dialogs;
    const WindowYield yield;
    frmNWDialog browser({*opened.network, settings, exclusions, log, dialogs, {}}, nullptr);
    browser.show();
    auto& tree = *browser.findChild<TreeView*>();
    ASSERT_TRUE(QTest::qWaitFor([&tree] { return tree.isVisible(); }));

    for (const char* key : {"??LAN", "??HOME", "??\\\\FILER", "??\\\\GONE"}) {
        ASSERT_TRUE(tree.Contains(Text(key))) << key;
        tree.SetSelected(Text(key));
        QTest::keyClick(&tree, Qt::Key_Right);
    }
    EXPECT_EQ(tree.Children(Text("??HOME")),
              (QStringList{Text("??\\\\FILER"), Text("??\\\\GONE")}));
    EXPECT_TRUE(tree.Children(Text("??\\\\GONE")).isEmpty());
    const QString share = Text("??\\\\FILER\\PUBLIC");
    ASSERT_TRUE(tree.Contains(share));
    EXPECT_EQ(tree.Text(share), Text("PUBLIC"));
    EXPECT_TRUE(tree.Bold(share)) << "excluded";
    EXPECT_EQ(tree.Image(share), Text("share"));
    ASSERT_TRUE(tree.Contains(Text("??\\\\FILER\\PRINTER")));
    EXPECT_EQ(tree.Image(Text("??\\\\FILER\\PRINTER")), Text("printer"));
    EXPECT_EQ(dialogs.Shown, QStringList());

    tree.SetSelected(share);
    QTest::keyClick(&tree, Qt::Key_Return);
    ASSERT_TRUE(browser.Result());
    EXPECT_EQ(browser.Result()->RemoteName(), Text("\\\\FILER\\PUBLIC"));
}

} // namespace
} // namespace netrove
