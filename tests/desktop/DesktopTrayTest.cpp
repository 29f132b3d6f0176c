#include "desktop/DesktopTray.h"

#include <QMenu>
#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(DesktopTrayTest, ADesktopWithoutDisplayHasNone) {
    DesktopTray tray;
    EXPECT_FALSE(tray.IsThere());
    tray.Remove();
}

} // namespace
} // namespace netrove
