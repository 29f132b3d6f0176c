#pragma once

#include "desktop/NotifierHost.h"
#include "desktop/X11Tray.h"
#include "platform/Tray.h"

#include <QPointer>
#include <QSystemTrayIcon>

#include <optional>

namespace netrove {

/// The tray of Linux desktops: one that takes icons over the session bus, or else one that takes
/// X11 windows. The icon is the application's. Over the bus, whatever the desktop takes for an
/// activation of the icon counts as a double click.
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
    /// Which of the two trays is used: from the first icon on, Qt keeps to its choice.
    std::optional<bool> overBus_;
    bool wasThere_;
    QPointer<QSystemTrayIcon> icon_;
    QRect lastPlace_;
};

} // namespace netrove
