#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "options/frmAddNetNode.h"
#include "options/frmOpts.h"

namespace netrove {
namespace {

/// The options, from the menu of the main window, in one run of the program after another.
class OptionsStory : public testing::Test {
protected:
    struct Run : TestDesktop {
        explicit Run(OptionsStory& story)
            : window(ServicesIn(story.applicationFolder.path(), story.network)), driver(window) {
            driver.Open();
        }

        frmNetrove window;
        WindowDriver driver;
    };

    void SetUp() override {
        network.AddNode(QString(), NetEnum::DisplayNetwork, Text("Net"));
        network.AddNode(Text("Net"), NetEnum::DisplayServer, Text("\\\\S"));
        network.AddNode(Text("\\\\S"), NetEnum::DisplayShare, Text("\\\\S\\D"));
        network.AddFile(Text("\\\\S\\D\\song"), 1500000);
        network.AddFile(Text("\\\\S\\D\\Spare\\song"), 1);
        network.AddFile(Text("\\\\S\\D\\my song"), 2);
    }

    /// Opens a dialog and uses it, as soon as it is there.
    template <typename Dialog>
    static void Use(const std::function<void()>& open, const std::function<void(Dialog&)>& use) {
        bool used = false;
        QTimer user;
        user.callOnTimeout([&] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (used || !dialog || !dialog->isActiveWindow())
                return;
            used = true;
            use(*dialog);
        });
        user.start(5);
        open();
        EXPECT_TRUE(used);
    }
    static void UseOptions(Run& run, const std::function<void(frmOpts&)>& use) {
        Use<frmOpts>([&] { run.driver.Find<QAction>("mnuOpts").trigger(); }, use);
        run.driver.Activate();
    }

    static void ExcludeFolder(frmOpts& options, const char* name) {
        Use<frmAddNetNode>([&] { options.findChild<QAction*>(Text("mnuAddNetNode"))->trigger(); },
                           [name](frmAddNetNode& add) {
                               QTest::keyClicks(add.findChild<QLineEdit*>(Text("txtNetNodeName")),
                                                Text(name));
                               QTest::keyClick(&add, Qt::Key_Return);
                           });
    }

    /// The sizes of the found files, in bytes or other units.
    static std::string Sizes(Run& run) {
        QStringList sizes;
        auto& list = run.driver.Find<ListView>("lvwResults");
        for (int row = 1; row <= list.Count(); ++row)
            sizes.append(list.SubItem(row, 2));
        return sizes.join(u' ').toStdString();
    }

    QTemporaryDir applicationFolder;
    MemoryNetwork network;
};

TEST_F(OptionsStory, WhatIsChosenIsUsedAndKept) {
    {
        Run run(*this);
        run.driver.Search("song");
        EXPECT_EQ(Sizes(run), "1.4305 0.0000 0.0000");
        run.dialogs.Font = [](ChosenFont font) { return font.italic = true, font; };
        UseOptions(run, [](frmOpts& options) {
            for (const char* option : {"optB", "optNoAA", "chkGrids"})
                options.findChild<QAbstractButton*>(Text(option))->click();
            options.findChild<QPushButton*>(Text("cmdChangeFont"))->click();
            ExcludeFolder(options, "Spare");
            QTest::keyClick(&options, Qt::Key_Return);
        });
        auto& list = run.driver.Find<ListView>("lvwResults");
        EXPECT_TRUE(list.GridLines() && list.font().italic()) << "at once";
        EXPECT_EQ(Sizes(run), "1.4305 0.0000 0.0000") << "rows keep their texts";
        run.driver.Search("song");
        EXPECT_EQ(Sizes(run), "1500000");
        EXPECT_EQ(list.HeaderText(3), Text("Size (B)"));
        EXPECT_EQ(run.dialogs.Shown, QStringList());
        EXPECT_TRUE(run.window.close());
    }
    Run run(*this);
    const auto& list = run.driver.Find<ListView>("lvwDownloads");
    EXPECT_TRUE(list.GridLines() && list.font().italic());
    UseOptions(run, [](frmOpts& options) {
        EXPECT_TRUE(options.findChild<QAbstractButton*>(Text("optB"))->isChecked());
        const auto& nodes = *options.findChild<ListView*>(Text("lvwExcNetNode"));
        EXPECT_EQ(nodes.Text(nodes.Count()), Text("Spare"));
        EXPECT_TRUE(nodes.font().italic());
        QTest::keyClick(&options, Qt::Key_Escape);
    });
    run.driver.Search("song");
    EXPECT_EQ(Sizes(run), "1500000");
}

} // namespace
} // namespace netrove
