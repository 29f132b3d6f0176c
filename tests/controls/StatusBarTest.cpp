#include "controls/StatusBar.h"

#include "controls/Twips.h"
#include "runtime/RunTimeError.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>
#include <gtest/gtest.h>

namespace netrove {
namespace {

class StatusBarTest : public testing::Test, public QObject {
protected:
    StatusBarTest() {
        bar.AddPanel(QStringLiteral("Idle"), ToTwips(100));
        bar.AddPanel(QString(), ToTwips(200));
        bar.AddPanel(QString(), ToTwips(35));
        window.resize(335, 100);
        bar.setGeometry(0, 100 - bar.sizeHint().height(), 335, bar.sizeHint().height());
        window.show();
        QApplication::processEvents();
        bar.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &bar && event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRect Painted() {
        painted = QRegion();
        QApplication::processEvents();
        return painted.boundingRect();
    }

    QWidget window;
    StatusBar bar{&window};
    QRegion painted;
};

TEST_F(StatusBarTest, PanelsFollowTheirWidths) {
    EXPECT_EQ(bar.PanelRect(2).left(), 100);
    for (const auto& [width, left] : {std::pair(ToTwips(50), 150), {-4000, 100}}) {
        bar.SetMinWidth(2, width);
        EXPECT_EQ(bar.PanelRect(3).left(), left);
    }
    for (const int panel : {1, 2})
        bar.SetMinWidth(panel, std::numeric_limits<int>::max());
    EXPECT_GT(bar.PanelRect(3).left(), 335);
    for (const int none : {-1, 0, 4})
        EXPECT_THROW(bar.SetText(none, QString()), RunTimeError);
}

TEST_F(StatusBarTest, PaintsOnlyThePanelThatChanged) {
    for (int count = 0; count < 1000; ++count)
        bar.SetText(2, QString::number(count));
    EXPECT_EQ(Painted(), bar.PanelRect(2));
    bar.SetText(2, QStringLiteral("999"));
    EXPECT_TRUE(Painted().isEmpty());

    window.hide();
    bar.SetText(1, QStringLiteral("Searching..."));
    window.show();
    Painted();
    bar.SetText(1, QStringLiteral("Idle"));
    EXPECT_EQ(Painted(), bar.PanelRect(1));
}

} // namespace
} // namespace netrove
