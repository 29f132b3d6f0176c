#include "skins/frame/WindowAbilities.h"

#include "runtime/SourceText.h"

#include <QGuiApplication>

namespace netrove {

bool CanMinimize(const QWidget& window) {
    return window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint);
}

bool CanMaximize(const QWidget& window) {
    return window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint) && !HasFixedSize(window);
}

bool CanRestore(const QWidget& window) {
    return window.isMaximized() && CanMaximize(window);
}

bool CanMove(const QWidget& window) {
    return !FillsScreen(window) && CanPlaceWindows();
}

bool CanPlaceWindows() {
    return !QGuiApplication::platformName().startsWith("wayland"_L1);
}

Qt::Edges ResizableEdges(const QWidget& window, Qt::Edges edges) {
    if (FillsScreen(window))
        return {};
    if (window.minimumWidth() == window.maximumWidth())
        edges &= ~(Qt::LeftEdge | Qt::RightEdge);
    if (window.minimumHeight() == window.maximumHeight())
        edges &= ~(Qt::TopEdge | Qt::BottomEdge);
    return edges;
}

void ToggleMaximized(QWidget& window) {
    if (CanRestore(window))
        window.showNormal();
    else if (CanMaximize(window))
        window.showMaximized();
}

bool FillsScreen(const QWidget& window) {
    return window.isMaximized() || window.isFullScreen();
}

bool HasFixedSize(const QWidget& window) {
    return window.minimumSize() == window.maximumSize();
}

} // namespace netrove
