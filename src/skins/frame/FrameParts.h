#pragma once

#include "skins/frame/FrameEdge.h"
#include "skins/frame/KeyboardDrag.h"
#include "skins/frame/SystemMenu.h"
#include "skins/frame/TitleBar.h"

#include <QShortcut>

namespace netrove {

/// The title bar, the borders and the system menu of one window. They are hidden until Show(). When
/// the window loses them they are only hidden again, as that can happen inside one of their own
/// events.
class FrameParts : public QObject {
public:
    /// The window owns this object.
    explicit FrameParts(QWidget& window);

    void SetLook(const std::shared_ptr<const FrameLook>& look);
    void Show();
    void Hide();

    /// Follows the window's size, and its state, flags, title and icon.
    void Place();
    void Refresh();

private:
    [[nodiscard]] std::array<FrameEdge*, 4> Edges();

    QWidget& window_;
    std::shared_ptr<const FrameLook> look_;
    KeyboardDrag* keyboardDrag_;
    SystemMenu* menu_;
    TitleBar* titleBar_;
    FrameEdge* left_;
    FrameEdge* right_;
    FrameEdge* bottom_;
    FrameEdge* top_;
    QShortcut* menuKey_;
};

} // namespace netrove
