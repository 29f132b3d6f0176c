#include "controls/TreeView.h"
#include "fakes/MemoryNetwork.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "options/frmAddNetNode.h"
#include "options/frmOpts.h"
#include "skins/frmCustomizeSkin.h"

#include <QScrollBar>
#include <QWindow>

namespace netrove {
namespace {

/// Moves a window that is hidden, as a window manager can that takes its frame away.
struct MovesHidden : QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide)
            static_cast<QWidget*>(watched)->windowHandle()->setPosition(1, 1);
        return false;
    }
};

/// One run of the program after another in one application folder.
class Restart : public testing::Test {
protected:
    struct Run : TestDesktop, WindowDriver {
        explicit Run(Restart& story)
            : WindowDriver(window), window(ServicesIn(story.folder.path(), story.network)) {
            Open();
            window.installEventFilter(&movesHidden);
        }
        ~Run() {
            EXPECT_TRUE(window.close());
            EXPECT_EQ(dialogs.Boxes(), "");
        }

        /// The sizes of the found files, as they are shown.
        std::string Sizes() { return Column(Results(), 2); }
        QColor Background() { return window.palette().color(QPalette::Window); }
        /// The number of the skin that is checked in the menu.
        int Skin() {
            int chosen = -1;
            for (int skin = 0; skin <= 5; ++skin) {
                if (Find<QAction>(qPrintable(Text("mnuSkin(%1)").arg(skin))).isChecked())
                    chosen = chosen == -1 ? skin : 99;
            }
            return chosen;
        }
        void UseOptions(const std::function<void(frmOpts&)>& use) {
            UseDialog<frmOpts>([this] { Trigger("mnuOpts"); }, use,
                               [](frmOpts& options) { return options.isActiveWindow(); });
            Activate();
        }

        MovesHidden movesHidden;
        frmNetrove window;
    };

    void SetUp() override {
        for (const char* share : {"\\\\S\\D", "\\\\S\\E"}) {
            network.AddBranch({"Net", "WG", "\\\\S", share});
            network.AddFile(Text(share) + Text("\\song"), 1500000);
            network.AddFile(Text(share) + Text("\\Spare\\song"), 1);
        }
    }

    /// Goes down from the root with the keyboard: right opens a node, down goes to its first child.
    static TreeView& OpenShares(frmNWDialog& browser) {
        auto& tree = FindIn<TreeView>(browser, "tvwNetwork");
        tree.SetSelected(Text("??Net"));
        for (int level = 0; level < 3; ++level) {
            QTest::keyClick(&tree, Qt::Key_Right);
            QTest::keyClick(&tree, Qt::Key_Down);
        }
        EXPECT_EQ(tree.Selected(), Text("??\\\\S\\D"));
        return tree;
    }

    QTemporaryDir folder;
    MemoryNetwork network;
};

TEST_F(Restart, FindsTheWindowAndTheSearchAsTheyWere) {
    QRect place;
    int width = 0;
    {
        Run run(*this);
        run.Browse([](frmNWDialog& browser) {
            TreeView& tree = OpenShares(browser);
            QTest::keyClick(&tree, Qt::Key_Down);
            FindIn<QAction>(browser, "mnuExcNode").trigger();
            EXPECT_TRUE(tree.Bold(Text("??\\\\S\\E")));
            QTest::keyClick(&tree, Qt::Key_Up);
            QTest::mouseClick(&FindIn(browser, "cmdOk"), Qt::LeftButton);
        });
        EXPECT_EQ(run.StartNodeText(), Text("\\\\S\\D"));
        run.Search("*.mp3");
        run.Search("song,copy");
        ListHeader& header = *run.Results().Header();
        const QPoint edge(header.sectionViewportPosition(1) + header.sectionSize(1) - 1,
                          header.height() / 2);
        DragMouse(*header.viewport(), edge, edge + QPoint(40, 0));
        width = run.Results().ColumnWidth(2);
        EXPECT_GT(width, 1500);
        QTest::keyClick(&run.Find("chkRecurse"), Qt::Key_Space);
        run.window.resize(760, 480);
        run.window.move(20, 30);
        QCoreApplication::processEvents();
        place = run.window.windowHandle()->frameGeometry();
        EXPECT_FALSE(QFile::exists(IniFileName(folder.path()))) << "written at the end only";
    }
    for (int round = 0; round < 2; ++round) {
        Run run(*this);
        EXPECT_EQ(run.window.windowHandle()->frameGeometry(), place);
        EXPECT_EQ(run.Results().ColumnWidth(2), width);
        EXPECT_EQ(run.Downloads().ColumnWidth(2), width);
        EXPECT_FALSE(run.Find<QCheckBox>("chkRecurse").isChecked());
        auto& input = run.Find<QComboBox>("LstSearchFor");
        EXPECT_EQ(input.currentText(), Text("song,copy"));
        EXPECT_EQ(input.findText(Text("song,copy")), 0);
        EXPECT_EQ(input.findText(Text("*.mp3")), 1);
        // The start node is the root again, and the excluded share is passed over.
        EXPECT_EQ(run.StartNodeText(), Text("[Root]"));
        run.Search("song,copy");
        EXPECT_EQ(run.Rows(), Texts({"\\\\S\\D\\song"}));
        run.Browse([](frmNWDialog& browser) {
            const TreeView& tree = OpenShares(browser);
            EXPECT_FALSE(tree.Bold(Text("??\\\\S\\D")));
            EXPECT_TRUE(tree.Bold(Text("??\\\\S\\E")));
            browser.reject();
        });
    }
}

TEST_F(Restart, FindsTheOptionsAndTheSkinThatWereChosen) {
    const QColor withoutRed(0, 189, 214);
    const auto excludeFolder = [](frmOpts& options, const char* name) {
        UseDialog<frmAddNetNode>([&] { FindIn<QAction>(options, "mnuAddNetNode").trigger(); },
                                 [name](frmAddNetNode& add) {
                                     QTest::keyClicks(&FindIn(add, "txtNetNodeName"), Text(name));
                                     QTest::keyClick(&add, Qt::Key_Return);
                                 },
                                 [](frmAddNetNode& add) { return add.isActiveWindow(); });
    };
    {
        Run run(*this);
        EXPECT_EQ(run.Skin(), 1) << "a first start";
        EXPECT_EQ(run.window.centralWidget()->size(), QSize(728, 419)) << "10920 by 6285 twips";
        EXPECT_EQ(run.Background(), QColor(0, 0, 0));
        run.Trigger("mnuSkin(2)");
        UseDialog<frmCustomizeSkin>([&] { run.Trigger("mnuSkinCust"); },
                                    [](frmCustomizeSkin& dialog) {
                                        FindIn<QCheckBox>(dialog, "chkAdjustRGB").setChecked(true);
                                        FindIn<QScrollBar>(dialog, "hscRed").setValue(0);
                                        QTest::mouseClick(&FindIn(dialog, "cmdOk"), Qt::LeftButton);
                                    });
        EXPECT_EQ(run.Background(), withoutRed);
        run.Activate();

        run.Search("song");
        EXPECT_EQ(run.Sizes(), "1.4305 0.0000 1.4305 0.0000");
        run.dialogs.Font = [](ChosenFont font) { return font.italic = true, font; };
        run.UseOptions([&](frmOpts& options) {
            for (const char* option : {"optB", "chkGrids"})
                FindIn<QAbstractButton>(options, option).click();
            FindIn<QAbstractButton>(options, "cmdChangeFont").click();
            excludeFolder(options, "Spare");
            QTest::keyClick(&options, Qt::Key_Return);
        });
        EXPECT_TRUE(run.Results().GridLines() && run.Results().font().italic()) << "at once";
        EXPECT_EQ(run.Sizes(), "1.4305 0.0000 1.4305 0.0000") << "rows keep their texts";
        run.Search("song");
        EXPECT_EQ(run.Sizes(), "1500000 1500000");
        for (const ListView* list : {&run.Results(), &run.Downloads()})
            EXPECT_EQ(list->HeaderText(3), Text("Size (B)"));
    }
    {
        Run run(*this);
        EXPECT_TRUE(run.Downloads().GridLines() && run.Downloads().font().italic());
        run.UseOptions([](frmOpts& options) {
            EXPECT_TRUE(FindIn<QAbstractButton>(options, "optB").isChecked());
            const auto& nodes = FindIn<ListView>(options, "lvwExcNetNode");
            EXPECT_EQ(nodes.Text(nodes.Count()), Text("Spare"));
            QTest::keyClick(&options, Qt::Key_Escape);
        });
        run.Search("song");
        EXPECT_EQ(run.Sizes(), "1500000 1500000");
        EXPECT_EQ(run.Skin(), 2);
        EXPECT_EQ(run.Background(), withoutRed);
        run.Trigger("mnuSkin(0)");
        EXPECT_EQ(run.Background(), QApplication::palette().color(QPalette::Window));
    }
    Run run(*this);
    EXPECT_EQ(run.Skin(), 0);
    EXPECT_FALSE(run.Find<QAction>("mnuSkinCust").isEnabled());
}

} // namespace
} // namespace netrove
