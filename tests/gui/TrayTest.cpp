#include "gui/WindowTest.h"
#include "platform/ProfileFile.h"

#include <QSignalSpy>

namespace netrove {
namespace {

/// The window goes to the tray when it's closed.
class TrayTest : public WindowTest {
protected:
    void SetUp() override {
        AddFile("\\\\S\\D\\one.mp3");
        AddFile("\\\\S\\D\\SUB\\two.mp3");
        Open();
        Trigger("mnuSkin(3)");
        settings.MinToTray = true;
    }

    /// Does something in the middle of a search.
    void WhileSearching(std::function<void()> action) {
        Activate();
        When("list \\\\S\\D\\SUB\\", std::move(action));
        Search("*.mp3");
    }

    void CloseToTray() {
        window->close();
        EXPECT_TRUE(window->isHidden());
        EXPECT_TRUE(tray.Tip);
        EXPECT_EQ(settings.SkinIndex, 0);
    }
    void ExpectOutOfTray(Qt::WindowStates state) {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !tray.Tip; }));
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return (window->windowState() & ~Qt::WindowActive) == state;
        })) << window->windowState();
        EXPECT_EQ(settings.SkinIndex, 3);
        // What the window system still says of this state isn't to come in the next one.
        QCoreApplication::processEvents();
    }
    void ExpectUnloaded(const char* skin) {
        EXPECT_TRUE(QTest::qWaitFor([this] { return unloaded.size() == 1; }));
        EXPECT_FALSE(tray.Tip);
        EXPECT_TRUE(window->isHidden());
        EXPECT_EQ(
            ProfileFile(IniFileName(folder.path())).ReadIni(Text("Skin"), Text("Index"), Text("-")),
            Text(skin));
    }

    Settings& settings = window->ProgramSettings();
    QSignalSpy unloaded{window.get(), &frmNetrove::Unloaded};
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
            Trigger(way.item);
        else
            tray.DoubleClick();
        ExpectOutOfTray(way.state);
    }
    Trigger("mnuExit");
    QTest::qWait(5);
    EXPECT_EQ(unloaded.size(), 0) << "a click that comes too late does nothing";
    Trigger("mnuExit1");
    ExpectUnloaded("3");
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(TrayTest, NobodyLosesTheWindow) {
    tray.Works = false;
    window->close();
    EXPECT_TRUE(window->isMinimized());
    EXPECT_FALSE(window->isHidden());
    EXPECT_EQ(settings.SkinIndex, 3);
    for (const char* why : {"the tray comes late", "the tray is back"}) {
        tray.Become(true);
        EXPECT_TRUE(QTest::qWaitFor([this] { return tray.Tip.has_value(); })) << why;
        EXPECT_TRUE(window->isHidden()) << why;
        tray.Become(false);
        ExpectOutOfTray(Qt::WindowMinimized);
    }
    window->showNormal();
    Activate();
    tray.Become(true);
    QTest::qWait(5);
    EXPECT_TRUE(window->isVisible()) << "its user has taken it up";
    EXPECT_FALSE(tray.Tip);
    EXPECT_EQ(unloaded.size(), 0);
}

TEST_F(TrayTest, SessionEndAbortsASearchInTheTray) {
    WhileSearching([this] {
        CloseToTray();
        window->EndSession();
        EXPECT_EQ(unloaded.size(), 0);
    });
    ExpectCaption("Aborted");
    ExpectUnloaded("0"); // that of the moment
    EXPECT_EQ(dialogs.Boxes(), "") << "nobody is there to be told";
}

} // namespace
} // namespace netrove
