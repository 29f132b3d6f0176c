#pragma once

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QObject>

namespace netrove {

/// Whether somebody on the session bus shows tray icons that programs offer there (the
/// StatusNotifierItem protocol).
class NotifierHost : public QObject {
    Q_OBJECT

public:
    NotifierHost();

    /// False until the bus has answered, some milliseconds after the start.
    [[nodiscard]] bool IsThere() const { return isThere_; }

Q_SIGNALS:
    void Changed();

private Q_SLOTS:
    void Ask();

private:
    void Set(bool isThere);

    QDBusServiceWatcher watcher_;
    bool isThere_ = false;
};

} // namespace netrove
