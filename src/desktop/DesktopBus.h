#pragma once

#include "platform/Shell.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QUrl>
#include <QVariantList>

#include <chrono>

namespace netrove {

/// Services of the desktop on the session bus. A call gives false where the desktop doesn't have
/// the service, or reports a failure within the limit; if it reports one later, a timer calls
/// `failed`.
class DesktopBus : public QObject {
    Q_OBJECT

public:
    /// How long a call waits for its answer. A service that has to be started takes longer.
    static constexpr std::chrono::milliseconds Limit{100};
    explicit DesktopBus(const QDBusConnection& bus) : bus_(bus) {}

    /// Shows a file or folder in the file manager, selected in its folder.
    [[nodiscard]] bool ShowInFolder(const QUrl& address, const Shell::Failed& failed);

    /// Brings up the desktop's choice of programs for a file.
    [[nodiscard]] bool AskWhichProgram(const QUrl& address, const Shell::Failed& failed);

private:
    [[nodiscard]] bool Call(QDBusMessage message, const QVariantList& arguments,
                            const Shell::Failed& failed);

    QDBusConnection bus_;
};

} // namespace netrove
