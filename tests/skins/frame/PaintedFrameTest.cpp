#include "skins/frame/PaintedFrame.h"

#include "controls/Color.h"
#include "skins/frame/PlainSkin.h"

#include <QAbstractButton>
#include <QDialog>
#include <QVBoxLayout>

namespace netrove {
namespace {

constexpr int TitleHeight = PlainSkin::RowHeight;
constexpr QMargins Frame(PlainSkin::Border, TitleHeight, PlainSkin::Border, PlainSkin::Border);

class PaintedFrameTest : public FrameTest {
protected:
    /// The window with its frame, whosever that is.
    QRect Outer() const { return window.windowHandle()->frameGeometry(); }

    QColor Pixel(const char* part, const QPoint& at) const {
        return Part(part).grab().toImage().pixelColor(at);
    }
};

TEST_F(PaintedFrameTest, TakesTheStandardFramesPlaceAndGivesItBack) {
    Open();
    const QRect outer = Outer();
    const QMargins standard = window.windowHandle()->frameMargins();
    ASSERT_FALSE(standard.isNull()) << "There is no frame to be taken away.";
    const WId id = window.winId();
    const QWidget* central = window.centralWidget();
    for (int round = 0; round < 2; ++round) {
        Attach();
        EXPECT_TRUE(QTest::qWaitFor([&] { return Outer() == outer; }));
        EXPECT_TRUE(window.windowHandle()->frameMargins().isNull());
        EXPECT_EQ(window.geometry(), outer);
        EXPECT_EQ(window.contentsMargins(), Frame);
        EXPECT_EQ(Part("frameTitleBar").geometry(), QRect(0, 0, outer.width(), TitleHeight));
        EXPECT_EQ(window.menuBar()->geometry().top(), TitleHeight);
        EXPECT_TRUE(window.windowFlags() & Qt::FramelessWindowHint);

        frame.Detach();
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return Outer() == outer && window.windowHandle()->frameMargins() == standard; }));
        EXPECT_TRUE(window.contentsMargins().isNull());
        EXPECT_FALSE(Part("frameTitleBar").isVisible());
        EXPECT_FALSE(window.windowFlags() & Qt::FramelessWindowHint);
    }
    EXPECT_EQ(window.winId(), id);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.centralWidget(), central);
}

TEST_F(PaintedFrameTest, KeepsTheClientSizeOfAWindowThatWasNeverShown) {
    const QSize client = window.contentsRect().size();
    Attach();
    EXPECT_EQ(window.contentsRect().size(), client);
    EXPECT_EQ(window.windowHandle(), nullptr);
    Open();
    EXPECT_TRUE(window.windowHandle()->flags() & Qt::FramelessWindowHint);
    EXPECT_EQ(window.contentsRect().size(), client);

    // As it does when it goes to the tray and comes back.
    const QRect outer = Outer();
    window.hide();
    frame.Detach();
    Attach();
    window.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Outer() == outer; }));
    EXPECT_TRUE(window.windowHandle()->frameMargins().isNull());
}

TEST_F(PaintedFrameTest, GivesAMaximisedWindowOnlyATitleBar) {
    Open();
    window.showMaximized();
    const QSize screen = window.size();
    Attach();
    EXPECT_EQ(window.contentsMargins(), QMargins(0, TitleHeight, 0, 0));
    EXPECT_EQ(window.size(), screen);
    EXPECT_EQ(Part("frameButtonMaximize").accessibleName(), QLatin1String("Restore"));
    EXPECT_FALSE(Part("frameEdgeLeft").isVisible());

    QTest::mouseDClick(&Part("frameTitleBar"), Qt::LeftButton, {}, QPoint(120, 20));
    EXPECT_FALSE(window.isMaximized());
    EXPECT_EQ(window.contentsMargins(), Frame);
    EXPECT_TRUE(Part("frameEdgeLeft").isVisible());
    QTest::mouseClick(&Part("frameButtonMaximize"), Qt::LeftButton);
    EXPECT_TRUE(window.isMaximized());
}

TEST_F(PaintedFrameTest, LeavesOnlyColoursWhereTheDesktopKeepsItsFrame) {
    Open();
    insisted = QMargins(2, 20, 2, 2);
    Attach();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Part("frameTitleBar").isVisible(); }));
    EXPECT_TRUE(window.contentsMargins().isNull());
    EXPECT_EQ(frame.ResolvedBackColor(), skin.configuration.BarColor4);
    EXPECT_EQ(FromColor(window.menuBar()->palette().color(QPalette::Window)),
              skin.configuration.BarColor4);
}

TEST_F(PaintedFrameTest, PaintsAgainWhatHasChanged) {
    Open();
    const QPalette bar = window.menuBar()->palette();
    const quint32 desktop = frame.ResolvedBackColor();
    Attach();
    EXPECT_EQ(Pixel("frameTitleBar", {0, 0}), QColor(Qt::red));
    EXPECT_EQ(window.menuBar()->palette().color(QPalette::HighlightedText), QColor(Qt::yellow));

    skin.configuration.Colorize = true;
    skin.configuration.Hue = 2;
    skin.configuration.Saturation = 1;
    skin.configuration.FrameMetric1 = 8;
    Attach();
    EXPECT_EQ(Pixel("frameTitleBar", {0, 0}), QColor(Qt::green));
    EXPECT_EQ(window.contentsMargins().left(), 8);
    EXPECT_EQ(ToColor(frame.ResolvedForeColor()), QColor(0, 0xC0, 0));

    // As when a dialog comes up.
    QDialog other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(Pixel("frameTitleBar", {0, 0}).rgb(), QColor(Qt::green).darker().rgb());

    frame.Detach();
    EXPECT_EQ(window.menuBar()->palette(), bar);
    EXPECT_EQ(frame.ResolvedBackColor(), desktop);
}

TEST_F(PaintedFrameTest, HasTheButtonsThatTheWindowCanUse) {
    Open();
    Attach();
    const QPoint face(2, 2);
    QWidget& close = Part("frameButtonClose");
    EXPECT_LT(Part("frameButtonMaximize").geometry().right(), close.x());
    EXPECT_LT(Part("frameButtonMinimize").geometry().right(), Part("frameButtonMaximize").x());
    EXPECT_EQ(close.accessibleName() + Part("frameButtonMinimize").accessibleName(),
              Text("CloseMinimize"));
    EXPECT_EQ(close.focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(Pixel("frameButtonClose", face), QColor(Qt::darkRed));
    QTest::mouseMove(&close, face);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return Pixel("frameButtonClose", face) == QColor(Qt::darkGreen); }));
    QTest::mousePress(&close, Qt::LeftButton, {}, face);
    EXPECT_EQ(Pixel("frameButtonClose", face), QColor(Qt::darkBlue));
    // Let go elsewhere, it does nothing.
    QTest::mouseMove(&close, QPoint(-50, 50));
    QTest::mouseRelease(&close, Qt::LeftButton, {}, QPoint(-50, 50));
    EXPECT_TRUE(window.isVisible());
    QTest::mouseClick(&Part("frameButtonMinimize"), Qt::LeftButton);
    EXPECT_TRUE(window.isMinimized());
    window.showNormal();
    QTest::mouseClick(&close, Qt::LeftButton);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PaintedFrameTest, KeepsADialogOfFixedSizeAsItIs) {
    QDialog dialog;
    dialog.setFixedSize(220, 120);
    frame.Attach(dialog, skin.configuration);
    EXPECT_EQ(dialog.contentsRect().size(), QSize(220, 120));
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    const auto visible = [&](const char* name) { return FindIn(dialog, name).isVisible(); };
    EXPECT_TRUE(visible("frameButtonClose"));
    EXPECT_FALSE(visible("frameButtonMaximize"));
    EXPECT_FALSE(visible("frameButtonMinimize"));

    const QSize size = dialog.size();
    QWidget& edge = FindIn(dialog, "frameEdgeRight");
    QTest::mousePress(&edge, Qt::LeftButton, {}, QPoint(2, 60));
    QTest::mouseMove(&edge, QPoint(40, 60));
    QTest::mouseRelease(&edge, Qt::LeftButton, {}, QPoint(40, 60));
    EXPECT_EQ(edge.cursor().shape(), Qt::ArrowCursor);
    QTest::mouseDClick(&FindIn(dialog, "frameTitleBar"), Qt::LeftButton, {}, QPoint(100, 20));
    EXPECT_EQ(dialog.size(), size);
    frame.Detach();
    EXPECT_EQ(dialog.size(), QSize(220, 120));
}

} // namespace
} // namespace netrove
