#include "browser/frmNWDialog.h"
#include "controls/TreeView.h"
#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"

#include <QHeaderView>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// One run of the program after another in one application folder.
class RestartStory : public testing::Test {
protected:
    struct Run : TestDesktop {
        explicit Run(RestartStory& story)
            : window(ServicesIn(story.applicationFolder.path(), story.network)), driver(window) {
            driver.Open();
        }

        frmNetrove window;
        WindowDriver driver;
    };

    void SetUp() override {
        network.AddNode(QString(), NetEnum::DisplayNetwork, Text("Net"));
        network.AddNode(Text("Net"), NetEnum::DisplayDomain, Text("WG"));
        network.AddNode(Text("WG"), NetEnum::DisplayServer, Text("\\\\MEDIA"));
        for (const char* share : {"MUSIC", "SPARE", "ATTIC"}) {
            const QString path = Text("\\\\MEDIA\\") + Text(share);
            network.AddNode(Text("\\\\MEDIA"), NetEnum::DisplayShare, path);
            network.AddFile(path + Text("\\song.mp3"));
            network.AddFile(path + Text("\\SPARE\\copy.mp3"));
        }
    }

    /// Opens the browser with the mouse and does `use` with the loaded tree; ends when it is shut.
    static void Browse(Run& run, const std::function<void(frmNWDialog&, TreeView&)>& use) {
        bool used = false;
        QTimer user;
        QObject::connect(&user, &QTimer::timeout, &run.window, [&] {
            auto* dialog = qobject_cast<frmNWDialog*>(QApplication::activeModalWidget());
            if (used || !dialog || !dialog->findChild<QPushButton*>(Text("cmdOk"))->isEnabled())
                return;
            auto& tree = *dialog->findChild<TreeView*>(Text("tvwNetwork"));
            if (!tree.isVisible())
                return;
            used = true;
            use(*dialog, tree);
        });
        user.start(20);
        run.driver.Click("cmdSetSearchStart");
        EXPECT_TRUE(used);
        run.window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&run.window));
    }

    /// Goes down from the root with the keyboard: right opens a node, down goes to its first child.
    static void OpenShares(TreeView& tree) {
        tree.SetSelected(Text("??_ROOT"));
        tree.SetSelected(Text("??Net"));
        for (int level = 0; level < 3; ++level) {
            QTest::keyClick(&tree, Qt::Key_Right);
            QTest::keyClick(&tree, Qt::Key_Down);
        }
        EXPECT_EQ(tree.Selected(), Text("??\\\\MEDIA\\MUSIC"));
    }

    static void Press(frmNWDialog& dialog, const char* button) {
        QTest::mouseClick(dialog.findChild<QPushButton*>(Text(button)), Qt::LeftButton);
    }

    QTemporaryDir applicationFolder;
    MemoryNetwork network;
};

TEST_F(RestartStory, ChoicesSurvive) {
    {
        Run run(*this);
        Browse(run, [](frmNWDialog& dialog, TreeView& tree) {
            OpenShares(tree);
            QTest::keyClick(&tree, Qt::Key_Down);
            ASSERT_EQ(tree.Selected(), Text("??\\\\MEDIA\\SPARE"));
            dialog.findChild<QAction*>(Text("mnuExcNode"))->trigger();
            EXPECT_TRUE(tree.Bold(tree.Selected()));
            QTest::keyClick(&tree, Qt::Key_Up);
            Press(dialog, "cmdOk");
        });
        EXPECT_EQ(run.driver.Find<QLineEdit>("txtSearchStart").text(), Text("\\\\MEDIA\\MUSIC"));
        run.driver.Search("song,copy");
        EXPECT_EQ(run.driver.Rows(), QStringList{Text("\\\\MEDIA\\MUSIC\\song.mp3")});
        auto& list = run.driver.Find<ListView>("lvwResults");
        list.SetColumnWidth(1, 3000);
        list.SetColumnWidth(12, 900);
        QTest::keyClick(&run.driver.Find<QWidget>("chkRecurse"), Qt::Key_Space);
        run.window.resize(760, 600);
        QCoreApplication::processEvents();
        EXPECT_TRUE(run.window.close());
    }
    for (int round = 0; round < 2; ++round) {
        Run run(*this);
        EXPECT_TRUE(run.dialogs.Shown.isEmpty());
        EXPECT_EQ(run.window.size(), QSize(760, 600));
        EXPECT_EQ(run.driver.Find<ListView>("lvwResults").ColumnWidth(1), 3000);
        EXPECT_EQ(run.driver.Find<ListView>("lvwResults").ColumnWidth(12), 900);
        EXPECT_EQ(run.driver.Find<ListView>("lvwDownloads").ColumnWidth(1), 3000);
        EXPECT_FALSE(run.driver.Find<QCheckBox>("chkRecurse").isChecked());
        auto& input = run.driver.Find<QComboBox>("LstSearchFor");
        EXPECT_EQ(input.currentText(), Text("song,copy"));
        EXPECT_EQ(input.findText(Text("song,copy")), 0);
        EXPECT_EQ(run.window.ProgramSettings().ExcNetNodes.last(), Text("SPARE|True|Folder"));
        EXPECT_EQ(run.window.ProgramSettings().ExcNetNodes.size(), 5);
        // The start node is the root again, and the excluded share is passed over.
        EXPECT_EQ(run.driver.Find<QLineEdit>("txtSearchStart").text(), Text("[Root]"));
        run.driver.Search("song,copy");
        EXPECT_EQ(run.driver.Rows(), (QStringList{Text("\\\\MEDIA\\MUSIC\\song.mp3"),
                                                  Text("\\\\MEDIA\\ATTIC\\song.mp3")}));
        Browse(run, [](frmNWDialog& dialog, TreeView& tree) {
            OpenShares(tree);
            EXPECT_FALSE(tree.Bold(Text("??\\\\MEDIA\\MUSIC")));
            EXPECT_TRUE(tree.Bold(Text("??\\\\MEDIA\\SPARE")));
            Press(dialog, "cmdCancel");
        });
        EXPECT_TRUE(run.window.close());
    }
}

} // namespace
} // namespace netrove
