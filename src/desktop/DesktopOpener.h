#pragma once

#include "platform/Shell.h"

#include <QObject>
#include <QUrl>

#include <chrono>

namespace netrove {

/// Hands addresses to the desktop's opener, xdg-open, and notices whether it fails. What it has
/// started goes on when the program ends.
class DesktopOpener : public QObject {
    Q_OBJECT

public:
    /// A failure later than this isn't reported: some openers run as long as the program that they
    /// have started.
    static constexpr std::chrono::seconds Watched{10};

    ~DesktopOpener() override;

    /// False where there is no opener. If the opener fails, a timer calls `failed`.
    [[nodiscard]] bool Open(const QUrl& address, const Shell::Failed& failed);
};

} // namespace netrove
