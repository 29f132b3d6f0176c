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
    const char* const words[] = {"name of",
                                 "source of",
                                 "size of",
                                 "date/time",
                                 "this file",
                                 "HH:MM:SS",
                                 "kbps",
                                 "in Hz",
                                 "No help",
                                 "No help",
                                 "type as",
                                 "file extension",
                                 "No help available for this column."};
    for (const int list : {1, 2}) {
        for (int column = 0; column <= 12; ++column) {
            frmColHelp* shown = Show(list, column);
            const auto& label = FindIn<QLabel>(*shown, "Label1");
            EXPECT_LE(label.heightForWidth(label.width()), shown->height())
                << "cut: " << label.text().toStdString();
            const char* word = list == 2 && column == 5 ? "status of" : words[column];
            EXPECT_TRUE(label.text().contains(Text(word))) << column;
            shown->close();
        }
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
