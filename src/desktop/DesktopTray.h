#pragma once

#include "desktop/NotifierHost.h"
#include "desktop/X11Tray.h"
#include "platform/Tray.h"

#include <QPointer>
#include <QSystemTrayIcon>

#include <optional>

namespace netrove {

/// The tray of Linux desktops: one that takes icons over the session bus, else one that takes X11
/// windows. The icon is the application's. A double click over the bus is whatever the desktop
/// takes for an activation of the icon.
class DesktopTray : public Tray {
    Q_OBJECT

public:
    DesktopTray();

    [[nodiscard]] bool IsThere() const override;
    void Show(const QString& tip, QMenu& menu) override;
    void SetTip(const QString& tip) override;
    void Remove() override;
    [[nodiscard]] QRect Place() const override;

private:
    [[nodiscard]] QRect CurrentPlace() const;
    void ReportChange();

    NotifierHost host_;
    X11Tray x11_;
    /// Which of the two: the toolkit keeps to it from the first icon on.
    std::optional<bool> overBus_;
    bool wasThere_;
    QPointer<QSystemTrayIcon> icon_;
    QRect lastPlace_;
};

} // namespace netrove
