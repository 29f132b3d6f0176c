#pragma once

#include <QUrl>

/// Services of the desktop on the session bus. Each is false where the desktop doesn't have it.
namespace netrove::DesktopBus {

/// Shows a file or folder in the file manager, selected in its folder.
[[nodiscard]] bool ShowInFolder(const QUrl& address);

/// Brings up the desktop's choice of programs for a file.
[[nodiscard]] bool AskWhichProgram(const QUrl& address);

} // namespace netrove::DesktopBus
