#include "about/ColumnHelp.h"
#include "about/frmAbout.h"
#include "fakes/DesktopFakes.h"
#include "fakes/Find.h"

#include <QScreen>
#include <QTest>
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
                 mainWindow};
};

TEST(ColumnHelpTest, EachColumnHasItsTextThatStaysOnTheScreen) {
    QWidget window;
    window.resize(600, 400);
    window.show();
    QMenu menu(&window);
    ColumnHelp help(window, menu);
    const int right = QGuiApplication::primaryScreen()->geometry().width();
    QStringList texts;
    for (int at = 0; at < 26; ++at) {
        const auto show = [&](QPoint place) {
            help.HeaderRightClick(1 + at / 13, at % 13, place);
            EXPECT_TRUE(menu.isVisible());
            menu.close();
            help.HelpColMnu_Click();
            return QPointer(qobject_cast<frmColHelp*>(QApplication::activePopupWidget()));
        };
        QPointer<frmColHelp> shown = show(QPoint(10, 20));
        ASSERT_TRUE(shown);
        auto& label = FindIn<QLabel>(*shown, "Label1");
        texts.append(label.text());
        EXPECT_LE(label.heightForWidth(label.width()), shown->height())
            << "cut: " << label.text().toStdString();
        QTest::mouseClick(&label, Qt::LeftButton);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !shown; })) << "gone at a click";
        shown = show(QPoint(right - 1, 0));
        EXPECT_LE(shown->geometry().right(), right);
        QTest::mouseClick(shown, Qt::RightButton, Qt::NoModifier, QPoint(-5, 300));
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
    EXPECT_EQ(texts.count(Text("No help available for this column.")), 6) << "8, 9 and 12";
    EXPECT_EQ(texts.removeDuplicates(), 26 - 12) << "column 5 has two texts";
}

} // namespace
} // namespace netrove
