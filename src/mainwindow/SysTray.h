#pragma once

#include "platform/Dialogs.h"
#include "platform/Tray.h"
#include "skins/SkinSelection.h"
#include "windowservices/WindowControls.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace netrove {

/// The main window's life in the tray. While the icon is shown the window is hidden, without a
/// skin.
///
/// The window never gets lost: where the desktop has no tray it's minimised instead. It goes to a
/// tray that appears later, unless the user has brought it up meanwhile, and comes back minimised
/// from a tray that disappears.
class SysTray : public QObject {
    Q_OBJECT

public:
    struct Services {
        Tray& tray;
        SkinSelection& skins;
        qint32& SkinIndex; ///< the setting
        Dialogs& dialogs;
        std::function<void()> unload; ///< closes the window for good, unless a job runs
    };
    enum class Direction { FromTray, ToTray };

    /// The most characters of a tip.
    static constexpr int MaxTip = 64;

    /// `mnuRestore` is the default item of the menu `PopUp4Mnu`.
    SysTray(const WindowControls& controls, QMenu& PopUp4Mnu, QAction& mnuRestore,
            const Services& services);

    /// What the close box does instead of closing: the window goes to the tray, or is minimised.
    void PutAway();

    void MinimizeToTray();
    /// Does nothing where there is no icon.
    void RemoveTrayIcon();
    void RestoreFromTray();

    /// The items of the menu. They do their work from the event loop: a desktop may report a click
    /// while the program waits for the network. Failures of the first three end in a box.
    void mnuRestore_Click();
    void mnuMax_Click();
    void mnuMin_Click();
    /// Closes the window for good; the settings get back the skin from before the tray.
    void mnuExit_Click();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void GoToTray();
    void AwaitTray();
    void RestoreMinimized();
    void AddState(Qt::WindowState state);
    void ShowWindow();
    void RenewWindow();
    void FollowTray();
    void WithTrap(std::function<void()> work);
    void WhenInTray(std::function<void()> work);
    void Later(std::function<void()> work);
    void AnimateTray(Direction direction);
    void Fly(Direction direction) const;
    [[nodiscard]] QString TrayTip(QLatin1String gap) const;

    WindowControls controls_;
    QMenu& PopUp4Mnu_;
    Services services_;
    QTimer* tipTimer_;
    bool inTray_ = false;
    bool awaitsTray_ = false; ///< minimised because there is no tray
};

} // namespace netrove
