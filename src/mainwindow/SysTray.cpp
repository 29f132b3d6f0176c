#include "mainwindow/SysTray.h"

#include "mainwindow/FlyingFrame.h"
#include "runtime/SourceText.h"
#include "windowservices/OwnedWindows.h"

#include <QEvent>
#include <QWindow>

#include <chrono>
#include <utility>

namespace netrove {
namespace {

using namespace std::chrono_literals;

/// No desktop tells when the mouse comes over the icon, so the tip is kept up to date all the time.
constexpr auto TipInterval = 1s;
/// By then a new icon is in its place: 25 ms were measured.
constexpr auto IconPlacing = 100ms;

} // namespace

SysTray::SysTray(const WindowControls& controls, QMenu& PopUp4Mnu, QAction& mnuRestore,
                 const Services& services)
    : controls_(controls), PopUp4Mnu_(PopUp4Mnu), services_(services), tipTimer_(new QTimer(this)) {
    PopUp4Mnu_.setDefaultAction(&mnuRestore);
    controls_.window.installEventFilter(this);
    connect(&services_.tray, &Tray::Changed, this, [this] { Later([this] { FollowTray(); }); });
    connect(&services_.tray, &Tray::DoubleClicked, this, [this] {
        WhenInTray([this] {
            RemoveTrayIcon();
            RestoreFromTray();
        });
    });
    connect(tipTimer_, &QTimer::timeout, this, [this] { services_.tray.SetTip(TrayTip(" <"_L1)); });
}

void SysTray::PutAway() {
    if (inTray_)
        return;
    if (services_.tray.IsThere())
        GoToTray();
    else
        AwaitTray();
}

void SysTray::AwaitTray() {
    AddState(Qt::WindowMinimized);
    awaitsTray_ = true;
}

void SysTray::GoToTray() {
    controls_.window.hide();
    services_.skins.SavedSkinIndex = services_.SkinIndex;
    services_.skins.mnuSkin_Click(0);
    MinimizeToTray();
    // Laying out the window yields, so the tray may have gone by now.
    FollowTray();
}

void SysTray::MinimizeToTray() {
    awaitsTray_ = false;
    inTray_ = true;
    AnimateTray(Direction::ToTray);
    services_.tray.Show(TrayTip("  <"_L1), PopUp4Mnu_);
    tipTimer_->start(TipInterval);
    controls_.window.hide();
}

void SysTray::RemoveTrayIcon() {
    inTray_ = false;
    tipTimer_->stop();
    services_.tray.Remove();
}

void SysTray::RestoreFromTray() {
    AnimateTray(Direction::FromTray);
    RenewWindow();
    ShowWindow();
    services_.skins.Reskin();
}

/// The skin comes first, as a minimised window would move if its frame were exchanged.
void SysTray::RestoreMinimized() {
    AnimateTray(Direction::FromTray);
    RenewWindow();
    services_.skins.Reskin();
    AddState(Qt::WindowMinimized);
    ShowWindow();
}

void SysTray::ShowWindow() {
    // The focus would bring a minimised window up; on some desktops even asking for it would.
    const bool isMinimized = controls_.window.isMinimized();
    controls_.window.setAttribute(Qt::WA_ShowWithoutActivating, isMinimized);
    controls_.window.show();
    OwnAnew(*controls_.window.windowHandle());
    if (!isMinimized) {
        controls_.window.raise();
        controls_.window.activateWindow();
    }
}

/// X11 goes on treating a window as minimised once it was, and setting any state while it's hidden
/// shows it. So it's created anew before it's shown, with the state that it is to have, but not
/// minimised yet.
void SysTray::RenewWindow() {
    const Qt::WindowStates state = controls_.window.windowState() & ~Qt::WindowMinimized;
    controls_.window.overrideWindowState(state);
    if (QWindow* handle = controls_.window.windowHandle()) {
        handle->destroy();
        handle->setWindowStates(state);
    }
}

void SysTray::AddState(Qt::WindowState state) {
    controls_.window.setWindowState(controls_.window.windowState() | state);
}

void SysTray::FollowTray() {
    if (inTray_ && !services_.tray.IsThere()) {
        RemoveTrayIcon();
        RestoreMinimized();
        awaitsTray_ = true;
    } else if (awaitsTray_ && services_.tray.IsThere()) {
        GoToTray();
    }
}

void SysTray::mnuRestore_Click() {
    WithTrap([this] {
        RemoveTrayIcon();
        RestoreFromTray();
        services_.skins.Reskin();
    });
}

void SysTray::mnuMax_Click() {
    WithTrap([this] {
        AddState(Qt::WindowMaximized);
        RemoveTrayIcon();
        RestoreFromTray();
        services_.skins.Reskin();
    });
}

void SysTray::mnuMin_Click() {
    WithTrap([this] {
        RemoveTrayIcon();
        RestoreMinimized();
    });
}

void SysTray::WithTrap(std::function<void()> work) {
    WhenInTray(
        [this, work = std::move(work)] { services_.dialogs.Trap(u"Error in Restore"_s, work); });
}

void SysTray::mnuExit_Click() {
    WhenInTray([this] {
        services_.SkinIndex = services_.skins.SavedSkinIndex;
        services_.unload();
    });
}

void SysTray::WhenInTray(std::function<void()> work) {
    Later([this, work = std::move(work)] {
        if (inTray_)
            work();
    });
}

/// Messages from the session bus arrive during waits for the network, too, when no box could be
/// answered. Timers don't fire then.
void SysTray::Later(std::function<void()> work) {
    QTimer::singleShot(1ms, this, std::move(work));
}

void SysTray::AnimateTray(Direction direction) {
    if (!services_.tray.IsThere())
        return;
    // The place of a first icon is known only once it's shown.
    const bool isKnown = !services_.tray.Place().isEmpty();
    if (isKnown || direction == Direction::FromTray)
        Fly(direction);
    else
        QTimer::singleShot(IconPlacing, this, [this, direction] { Fly(direction); });
}

void SysTray::Fly(Direction direction) const {
    const QRect window = controls_.window.frameGeometry();
    const QRect tray = services_.tray.Place();
    if (tray.isEmpty())
        return;
    if (direction == Direction::ToTray)
        FlyingFrame::Fly(window, tray);
    else
        FlyingFrame::Fly(tray, window);
}

/// The window's title and the progress of the search.
QString SysTray::TrayTip(QLatin1String gap) const {
    const QString tip = controls_.window.windowTitle() + gap + controls_.RetFileLbl.text() + u'>';
    return tip.left(MaxTip);
}

/// Once the user has brought the window up, it no longer goes to the tray by itself.
bool SysTray::eventFilter(QObject* watched, QEvent* event) {
    const bool mayBeUp =
        event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowStateChange;
    const QWidget& window = controls_.window;
    if (mayBeUp && watched == &window && window.isActiveWindow() && !window.isMinimized())
        awaitsTray_ = false;
    return QObject::eventFilter(watched, event);
}

} // namespace netrove
