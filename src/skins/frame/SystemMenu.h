#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMenu>

namespace netrove {

class KeyboardDrag;

/// The menu of a window's frame: restore, move, size, minimise, maximise, close.
class SystemMenu : public QMenu {
    Q_DECLARE_TR_FUNCTIONS(SystemMenu)

public:
    SystemMenu(QWidget& window, KeyboardDrag& keyboardDrag);

    /// Whether the keys of the menu's items work while it is closed.
    void SetKeysOn(bool on);

    void OpenAt(const QPoint& onScreen);

    /// Opens below the icon, given in screen coordinates. A second click that makes a double click
    /// on the icon closes the window.
    void OpenAtIcon(const QRect& onScreen);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void SetStates();
    bool ClosesByDoubleClick(const QMouseEvent& event);

    QWidget& window_;
    QAction* restore_;
    QAction* move_;
    QAction* size_;
    QAction* minimize_;
    QAction* maximize_;
    QAction* close_;
    QRect icon_; ///< the icon that the menu was opened at
    QElapsedTimer sinceOpened_;
};

} // namespace netrove
