#include "skins/StandardFrame.h"

#include "skins/SkinFakes.h"

#include <gtest/gtest.h>

#include <memory>

namespace netrove {
namespace {

TEST(StandardFrameTest, TakesTheColoursOfTheWindowWhileThereIsOne) {
    LoggedPainter painter;
    const SkinConfiguration configuration(painter);
    StandardFrame frame;
    const quint32 desktopBack = frame.ResolvedBackColor();
    const quint32 desktopFore = frame.ResolvedForeColor();
    EXPECT_NE(desktopBack, desktopFore);

    auto window = std::make_unique<QWidget>();
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(1, 2, 3));
    palette.setColor(QPalette::WindowText, QColor(250, 128, 0));
    window->setPalette(palette);
    frame.Attach(*window, configuration);
    EXPECT_EQ(frame.ResolvedBackColor(), 0x030201U);
    EXPECT_EQ(frame.ResolvedForeColor(), 0x0080FAU);

    window.reset();
    EXPECT_EQ(frame.ResolvedBackColor(), desktopBack);
    frame.Detach();
    EXPECT_EQ(frame.ResolvedForeColor(), desktopFore);
}

} // namespace
} // namespace netrove
