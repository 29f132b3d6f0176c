#include "mainwindow/windowservices/WindowGeometry.h"

#include <QCursor>
#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(WindowGeometryTest, CentresFramesOnFrames) {
    QWidget parent;
    parent.setGeometry(-50, 60, 400, 300);
    QWidget child;
    child.resize(101, 500);
    CentreWindow(parent, child);
    const QRect outer = parent.frameGeometry();
    EXPECT_EQ(child.x(), outer.x() + (outer.width() - child.frameGeometry().width()) / 2);
    EXPECT_EQ(child.y(), outer.y() + (outer.height() - child.frameGeometry().height()) / 2);
    EXPECT_LT(child.y(), outer.y());
}

TEST(WindowGeometryTest, SizesTheInnerArea) {
    QWidget window;
    window.setContentsMargins(8, 30, 8, 4);
    SetClientSize(window, 6030, 4995);
    EXPECT_EQ(window.contentsRect().size(), QSize(402, 333));
    EXPECT_EQ(window.size(), QSize(418, 367));
    SetClientSize(window, -5000, 0);
    EXPECT_GE(window.width(), 0);
}

TEST(WindowGeometryTest, MeasuresTextsAndTheMouse) {
    QWidget window;
    const auto width = TextWidthIn(window);
    EXPECT_EQ(width(QString()), 0);
    EXPECT_GT(width(QStringLiteral("\\\\SERVER\\SHARE")), width(QStringLiteral("\\\\SERVER")));

    QCursor::setPos(33, 44);
    EXPECT_EQ(PixelsToTwipsX(CursorX()), 495);
    EXPECT_EQ(PixelsToTwipsY(CursorY()), 660);
}

} // namespace
} // namespace netrove
