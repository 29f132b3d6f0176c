#include "desktop/DesktopTray.h"

#include <QApplication>
#include <QMenu>

#include <utility>

namespace netrove {

DesktopTray::DesktopTray() : wasThere_(IsThere()) {
    connect(&host_, &NotifierHost::Changed, this, &DesktopTray::ReportChange);
    connect(&x11_, &X11Tray::Changed, this, &DesktopTray::ReportChange);
}

bool DesktopTray::IsThere() const {
    if (!overBus_)
        return host_.IsThere() || x11_.IsThere();
    return *overBus_ ? host_.IsThere() : x11_.IsThere();
}

void DesktopTray::ReportChange() {
    const bool isThere = IsThere();
    if (std::exchange(wasThere_, isThere) != isThere)
        Q_EMIT Changed();
}

void DesktopTray::Show(const QString& tip, QMenu& menu) {
    if (!overBus_)
        overBus_ = host_.IsThere();
    icon_ = new QSystemTrayIcon(QApplication::windowIcon(), this);
    icon_->setToolTip(tip);
    icon_->setContextMenu(&menu);
    connect(icon_, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::DoubleClick ||
                    (*overBus_ && reason == QSystemTrayIcon::Trigger))
                    Q_EMIT DoubleClicked();
            });
    icon_->show();
}

void DesktopTray::SetTip(const QString& tip) {
    // A desktop that takes icons over the bus asks for the whole icon again.
    if (icon_ && icon_->toolTip() != tip)
        icon_->setToolTip(tip);
}

void DesktopTray::Remove() {
    if (!icon_)
        return;
    lastPlace_ = Place();
    icon_->hide();
    // A click on the icon itself may be what removes it.
    icon_->deleteLater();
    icon_.clear();
}

QRect DesktopTray::Place() const {
    const QRect current = CurrentPlace();
    return current.isEmpty() ? lastPlace_ : current;
}

/// An icon that isn't in the tray yet reports the corner of the screen.
QRect DesktopTray::CurrentPlace() const {
    const QRect place = icon_ ? icon_->geometry() : QRect();
    return place.topLeft().isNull() ? QRect() : place;
}

} // namespace netrove
