#pragma once

#include "platform/Shell.h"

#include <QObject>
#include <QUrl>

#include <chrono>

namespace netrove {

/// Hands addresses to the desktop's opener, xdg-open, and hears whether it fails. What it has
/// started goes on when the program ends.
class DesktopOpener : public QObject {
    Q_OBJECT

public:
    /// An opener that ends later has opened something: some end with what they have started.
    static constexpr std::chrono::seconds Watched{10};

    ~DesktopOpener() override;

    /// False where there is no opener. `failed` is called by a timer where it ends in a failure.
    [[nodiscard]] bool Open(const QUrl& address, const Shell::Failed& failed);
};

} // namespace netrove
