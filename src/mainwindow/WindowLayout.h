#pragma once

#include "mainwindow/MainControls.h"

#include <QMainWindow>

namespace netrove {

/// Lays out the parts of the main window that follow its size: the tabs, the lists in them, the
/// captions below the lists, the middle panel of the status bar.
class WindowLayout {
public:
    /// Smallest outer size of the window, in twips.
    static constexpr int MinFormWidth = 11010;
    static constexpr int MinFormHeight = 6975;

    WindowLayout(QMainWindow& window, MainControls& controls)
        : window_(window), controls_(controls) {}

    /// Inner size of the window until somebody gives it another, in twips.
    static constexpr int DesignWidth = 10920;
    static constexpr int DesignHeight = 6285;

    /// Gives the window its design size, whatever menu and painted frame stand around it.
    void TakeDesignSize();

    /// To be called whenever the window's size has changed. Yields twice.
    void Form_Resize();

private:
    [[nodiscard]] QMargins ExpectedFrame();
    void EnforceMinimumSize();
    void ResizeWidths(int innerWidth);
    void ResizeHeights(int innerHeight);

    QMainWindow& window_;
    MainControls& controls_;
    QMargins frame_{}; ///< the last frame that the desktop put around the window
    int passes_ = 0;
};

} // namespace netrove
