#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "platform/ProfileFile.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// The real window, which goes to the tray when it's closed, over a share with a file.
class TrayTest : public testing::Test, public TestDesktop, public WindowDriver {
protected:
    TrayTest() : WindowDriver(window) {}

    void SetUp() override {
        network.AddNode(QString(), NetEnum::DisplayNetwork, Text("Net"));
        network.AddNode(Text("Net"), NetEnum::DisplayServer, Text("\\\\S"));
        network.AddNode(Text("\\\\S"), NetEnum::DisplayShare, Text("\\\\S\\D"));
        network.AddFile(Text("\\\\S\\D\\one.mp3"));
        network.AddFile(Text("\\\\S\\D\\SUB\\two.mp3"));
        Open();
        window.Skins().mnuSkin_Click(3);
        settings.MinToTray = true;
    }

    /// Does something in the middle of a search.
    void WhileSearching(std::function<void()> action) {
        Activate();
        network.OnCall = [action = std::move(action), done = false](const QString& call) mutable {
            if (!done && call == Text("list \\\\S\\D\\SUB\\")) {
                done = true;
                action();
            }
        };
        Search("*.mp3");
    }

    void CloseToTray() {
        window.close();
        EXPECT_TRUE(window.isHidden());
        EXPECT_TRUE(tray.Tip);
        EXPECT_EQ(settings.SkinIndex, 0);
    }
    void ExpectOutOfTray(Qt::WindowStates state) {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !tray.Tip; }));
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(window.windowState() & ~Qt::WindowActive, state);
        EXPECT_EQ(settings.SkinIndex, 3);
        EXPECT_TRUE(Find<QAction>("mnuSkin(3)").isChecked());
    }
    [[nodiscard]] QString StoredSkin() const {
        return ProfileFile(IniFileName(folder.path()))
            .ReadIni(Text("Skin"), Text("Index"), Text("-"));
    }

    MemoryNetwork network;
    frmNetrove window{Services(network)};
    Settings& settings = window.ProgramSettings();
    QSignalSpy unloaded{&window, &frmNetrove::Unloaded};
};

TEST_F(TrayTest, EveryWayBackBringsWindowAndSkin) {
    const struct {
        const char* item; ///< of the menu; null for a double click on the icon
        Qt::WindowStates state;
    } ways[] = {{nullptr, Qt::WindowNoState},    {"mnuRestore", Qt::WindowNoState},
                {"mnuMin", Qt::WindowMinimized}, {"mnuRestore", Qt::WindowNoState},
                {"mnuMax", Qt::WindowMaximized}, {"mnuRestore", Qt::WindowMaximized}};
    for (const auto& way : ways) {
        SCOPED_TRACE(way.item);
        CloseToTray();
        if (way.item)
            Find<QAction>(way.item).trigger();
        else
            tray.DoubleClick();
        ExpectOutOfTray(way.state);
    }
    Find<QAction>("mnuExit").trigger();
    bool isOver = false;
    QTimer::singleShot(std::chrono::milliseconds(5), &window, [&] { isOver = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return isOver; }));
    EXPECT_EQ(unloaded.size(), 0) << "a click that comes too late does nothing";
    EXPECT_TRUE(dialogs.Shown.isEmpty());
}

TEST_F(TrayTest, TipFollowsTheSearch) {
    auto& count = Find<QLabel>("RetFileLbl");
    count.setText(Text("none"));
    CloseToTray();
    EXPECT_EQ(*tray.Tip, Text("Netrove  <none>"));
    const auto expectTip = [&](const QString& tip) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return *tray.Tip == tip; })) << tray.Tip->toStdString();
    };
    count.setText(Text("some"));
    expectTip(Text("Netrove <some>"));
    count.setText(QString(100, u'9'));
    expectTip(Text("Netrove <") + QString(SysTray::MaxTip - 9, u'9'));
}

TEST_F(TrayTest, NobodyLosesTheWindow) {
    const auto expectInTray = [this](const char* why) {
        EXPECT_TRUE(QTest::qWaitFor([this] { return tray.Tip.has_value(); })) << why;
        EXPECT_TRUE(window.isHidden()) << why;
    };
    tray.Works = false;
    window.close();
    EXPECT_TRUE(window.isMinimized());
    EXPECT_FALSE(window.isHidden());
    EXPECT_EQ(settings.SkinIndex, 3);
    tray.Become(true);
    expectInTray("the tray comes late");
    tray.Become(false);
    ExpectOutOfTray(Qt::WindowMinimized);
    tray.Become(true);
    expectInTray("the tray is back");
    tray.Become(false);
    ExpectOutOfTray(Qt::WindowMinimized);
    window.showNormal();
    Activate();
    tray.Become(true);
    bool isOver = false;
    QTimer::singleShot(std::chrono::milliseconds(5), &window, [&] { isOver = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return isOver; }));
    EXPECT_TRUE(window.isVisible()) << "its user has taken it up";
    EXPECT_FALSE(tray.Tip);
    EXPECT_EQ(unloaded.size(), 0);
}

TEST_F(TrayTest, SearchGoesOnInTheTrayAndExitStoresTheSkin) {
    WhileSearching([this] {
        CloseToTray();
        Find<QAction>("mnuExit").trigger();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !dialogs.Shown.isEmpty(); }));
        EXPECT_TRUE(tray.Tip) << "refused";
    });
    EXPECT_EQ(dialogs.Shown, QStringList{Text("Search In Progress: Wait until the program reaches "
                                              "a stopping point.")});
    EXPECT_EQ(Rows().size(), 1) << "it was asked to stop";
    tray.DoubleClick();
    ExpectOutOfTray(Qt::WindowNoState);
    WhileSearching([this] { CloseToTray(); });
    EXPECT_EQ(Rows().size(), 2);
    EXPECT_EQ(unloaded.size(), 0);
    Find<QAction>("mnuExit").trigger();
    EXPECT_TRUE(QTest::qWaitFor([this] { return unloaded.size() == 1; }));
    EXPECT_FALSE(tray.Tip);
    EXPECT_TRUE(window.isHidden());
    EXPECT_EQ(StoredSkin(), Text("3"));
}

TEST_F(TrayTest, ExitOfTheFileMenuPassesTheTray) {
    WhileSearching([this] { Find<QAction>("mnuExit1").trigger(); });
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(dialogs.Shown.size(), 1);
    Find<QAction>("mnuExit1").trigger();
    EXPECT_EQ(unloaded.size(), 1);
    EXPECT_FALSE(tray.Tip);
    EXPECT_EQ(StoredSkin(), Text("3"));
}

TEST_F(TrayTest, SessionEndsFromTheTray) {
    CloseToTray();
    window.EndSession();
    EXPECT_EQ(unloaded.size(), 1);
    EXPECT_FALSE(tray.Tip);
    EXPECT_EQ(StoredSkin(), Text("0")) << "that of the moment";
}

TEST_F(TrayTest, SessionEndAbortsASearch) {
    WhileSearching([this] {
        window.EndSession();
        EXPECT_EQ(unloaded.size(), 0);
    });
    EXPECT_TRUE(Caption().startsWith(Text("Aborted"))) << Caption().toStdString();
    EXPECT_TRUE(QTest::qWaitFor([this] { return unloaded.size() == 1; }));
    EXPECT_TRUE(dialogs.Shown.isEmpty()) << "nobody is there to be told";
    EXPECT_EQ(StoredSkin(), Text("3"));
}

} // namespace
} // namespace netrove
