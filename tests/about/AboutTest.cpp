#include "about/ColumnHelp.h"
#include "about/frmAbout.h"
#include "about/frmPic.h"
#include "fakes/DesktopFakes.h"
#include "fakes/Find.h"

#include <QApplication>
#include <QScreen>
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
    look.callOnTimeout([&seen] {
        auto* picture = qobject_cast<frmPic*>(QApplication::activeModalWidget());
        if (picture && ++seen > 0)
            QTest::mouseClick(&FindIn(*picture, "picDudes"), Qt::LeftButton);
    });
    look.start(5);
    Click("imgIcon", Qt::LeftButton, Qt::ControlModifier | Qt::ShiftModifier);
    Click("imgIcon", Qt::RightButton, Qt::ControlModifier);
    EXPECT_EQ(seen, 0);
    Click("imgIcon", Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), &box);
}

class ColumnHelpTest : public testing::Test {
protected:
    ColumnHelpTest() {
        window.resize(600, 400);
        window.show();
    }

    /// The help for a column of that list, opened at this place.
    frmColHelp* Show(int list, int column, const QPoint& place = QPoint(10, 20)) {
        help.HeaderRightClick(list, column, place);
        EXPECT_TRUE(menu.isVisible());
        menu.close();
        help.HelpColMnu_Click();
        auto* shown = qobject_cast<frmColHelp*>(QApplication::activePopupWidget());
        if (!shown)
            qFatal("There is no help.");
        return shown;
    }

    QWidget window;
    QMenu menu{&window};
    ColumnHelp help{window, menu};
};

TEST_F(ColumnHelpTest, EachColumnHasItsText) {
    QStringList texts;
    for (const int list : {1, 2}) {
        for (int column = 0; column <= 12; ++column) {
            frmColHelp* shown = Show(list, column);
            const auto& label = FindIn<QLabel>(*shown, "Label1");
            texts.append(label.text());
            EXPECT_LE(label.heightForWidth(label.width()), shown->height())
                << "cut: " << label.text().toStdString();
            shown->close();
        }
    }
    EXPECT_EQ(texts.count(Text("No help available for this column.")), 6) << "8, 9 and 12";
    EXPECT_EQ(texts.removeDuplicates(), 26 - 12) << "column 5 has two texts";
}

TEST_F(ColumnHelpTest, ItStaysOnTheScreenAndGoesAtAClick) {
    const int right = QGuiApplication::primaryScreen()->geometry().width();
    QPointer<frmColHelp> shown = Show(1, 0, QPoint(10, 20));
    const int width = shown->width();
    const QPoint frame = shown->pos() - QPoint(10, 20); // of the offscreen platform
    shown->close();
    shown = Show(1, 0, QPoint(right - width, 0));
    EXPECT_EQ(shown->pos() - frame, QPoint(right - width, 0));
    QTest::mouseClick(&FindIn(*shown, "Label1"), Qt::LeftButton);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !shown; }));
    shown = Show(1, 0, QPoint(right - width + 1, 0));
    EXPECT_EQ(shown->pos() - frame, QPoint(right - 2 * width + 1, 0));
    QTest::mouseClick(shown, Qt::RightButton, Qt::NoModifier, QPoint(-5, 300));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

} // namespace
} // namespace netrove
