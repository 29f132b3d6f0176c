#include "fakes/DesktopFakes.h"
#include "fakes/Find.h"
#include "mainwindow/about/frmAbout.h"
#include "mainwindow/about/frmPic.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace netrove {
namespace {

class AboutTest : public testing::Test {
protected:
    AboutTest() {
        mainWindow.setGeometry(100, 100, 900, 600);
        mainWindow.show();
        box.open();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
    }

    void Click(const char* name, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(&FindIn(box, name), button, keys);
    }

    QWidget mainWindow;
    RecordedDialogs dialogs;
    RecordedShell shell;
    ShellServices shellServices{shell, dialogs};
    int updates = 0;
    frmAbout box{{.shell = shellServices,
                  .webAddress = Text("https://site.example/"),
                  .contactAddress = Text("who@site.example"),
                  .UpdateMnu = [this] { ++updates; },
                  .version = {{1, 2, 3}}},
                 nullptr,
                 mainWindow};
};

TEST_F(AboutTest, LinksLeadWhereTheySay) {
    EXPECT_EQ(FindIn<QLabel>(box, "lblVersion").text(), Text("Version: 1.2.3"));
    const struct {
        const char* link;
        Qt::MouseButton button;
        const char* opened;
    } cases[] = {
        {"lblCopyright", Qt::RightButton, "mailto:who@site.example"},
        {"lblProduct", Qt::RightButton, ""},
        {"lblProduct", Qt::LeftButton, "https://site.example/"},
        {"lblURL", Qt::LeftButton, "https://site.example/"},
        {"lblVersionUpdate", Qt::LeftButton, ""},
    };
    for (const auto& [link, button, opened] : cases) {
        shell.Opened.clear();
        Click(link, button);
        EXPECT_EQ(shell.Opened.join(u'|'), Text(opened)) << link;
        const bool isUsed = FindIn(box, link).palette().color(QPalette::WindowText) == Qt::red;
        EXPECT_EQ(isUsed, button == Qt::LeftButton || opened[0] != '\0') << link;
    }
    EXPECT_EQ(updates, 1);
    QTest::keyClick(&FindIn(box, "lblVersionUpdate"), Qt::Key_Return);
    EXPECT_EQ(updates, 2);
    EXPECT_TRUE(box.isVisible());
    Click("cmdOk");
    EXPECT_FALSE(box.isVisible());
}

TEST_F(AboutTest, ThePictureHides) {
    int seen = 0;
    QTimer look;
    look.callOnTimeout([&] {
        if (auto* picture = qobject_cast<frmPic*>(QApplication::activeModalWidget())) {
            ++seen;
            QTest::mouseClick(&FindIn(*picture, "picDudes"), Qt::LeftButton);
        }
    });
    look.start(5);
    for (const Qt::KeyboardModifiers keys :
         {Qt::KeyboardModifiers(Qt::NoModifier), Qt::ControlModifier | Qt::ShiftModifier})
        Click("imgIcon", Qt::LeftButton, keys);
    Click("imgIcon", Qt::RightButton, Qt::ControlModifier);
    EXPECT_EQ(seen, 0);
    Click("imgIcon", Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), &box);
}

} // namespace
} // namespace netrove
