#pragma once

#include "skins/frame/FrameButton.h"
#include "skins/frame/MouseDrag.h"

#include <QCoreApplication>
#include <QWidget>

namespace netrove {

class SystemMenu;

/// The title bar of a painted frame: icon, caption and buttons; moves the window.
class TitleBar : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(TitleBar)

public:
    TitleBar(QWidget& window, SystemMenu& menu);

    void SetLook(std::shared_ptr<const FrameLook> look);

    /// Follows the window's title, icon, flags and state.
    void Refresh();

    void OpenMenu();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void PlaceButtons();
    [[nodiscard]] QRect IconRect() const;

    QWidget& window_;
    SystemMenu& menu_;
    FrameButton close_;
    FrameButton maximize_;
    FrameButton minimize_;
    int buttonsLeft_ = 0;
    MouseDrag drag_;
    std::shared_ptr<const FrameLook> look_;
};

} // namespace netrove
