#pragma once

#include <QObject>
#include <QRect>
#include <QString>

QT_BEGIN_NAMESPACE
class QMenu;
QT_END_NAMESPACE

namespace netrove {

/// The desktop's tray, and the one icon that the program may have in it.
class Tray : public QObject {
    Q_OBJECT

public:
    /// Whether the desktop has a tray at this moment.
    [[nodiscard]] virtual bool IsThere() const = 0;

    /// Adds the program's icon. The desktop shows the menu for a right click; it must outlive the
    /// icon.
    virtual void Show(const QString& tip, QMenu& menu) = 0;
    /// Sets the tip of the icon, which must be shown.
    virtual void SetTip(const QString& tip) = 0;
    /// Does nothing where no icon is shown.
    virtual void Remove() = 0;

    /// Where on the screen the icon is, or was when it was last shown. Empty if the desktop doesn't
    /// tell; a desktop that does may need some milliseconds after Show().
    [[nodiscard]] virtual QRect Place() const = 0;

Q_SIGNALS:
    /// IsThere() has changed.
    void Changed();
    /// A double click with the left button, or what the desktop uses in its place. May come while
    /// the program waits for the network.
    void DoubleClicked();
};

} // namespace netrove
