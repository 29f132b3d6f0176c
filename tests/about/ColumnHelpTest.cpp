#include "mainwindow/about/ColumnHelp.h"

#include "fakes/Find.h"

#include <QApplication>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

namespace netrove {
namespace {

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
    const struct {
        int list;
        int column;
        const char* beginning;
    } cases[] = {
        {1, 0, "The name of the file"},
        {1, 1, "The source of the file"},
        {2, 4, "The attributes of this file:\n    R=Read Only\n"},
        {1, 5, "If the file is an MP3 file then the length"},
        {2, 5, "The status of the file:\n Pending=Waiting"},
        {1, 8, "No help available for this column."},
        {1, -1, "No help available for this column."},
    };
    for (const auto& [list, column, beginning] : cases) {
        frmColHelp* shown = Show(list, column);
        const auto& label = FindIn<QLabel>(*shown, "Label1");
        EXPECT_TRUE(label.text().startsWith(Text(beginning))) << label.text().toStdString();
        EXPECT_LE(label.heightForWidth(label.width()), shown->height()) << "cut: " << beginning;
        shown->close();
    }
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
