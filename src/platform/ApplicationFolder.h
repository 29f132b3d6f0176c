#pragma once

#include <QString>

namespace netrove {

/// Folders have no closing separator.

/// The folder of the executable.
[[nodiscard]] QString ProgramFolder();

/// The folder of what was installed with the program: "share/netrove" beside the folder of the
/// executable. Empty where the program hasn't been installed.
[[nodiscard]] QString InstalledFolder(const QString& programFolder = ProgramFolder());

/// The folder that the program keeps its files in: the folder of the executable where the program
/// hasn't been installed and the user may write there, else "netrove" in the user's data folder,
/// which is made if need be.
[[nodiscard]] QString ApplicationFolder(const QString& programFolder = ProgramFolder());

/// The first page of the help: the application folder's if it has one, else the installed one.
[[nodiscard]] QString HelpPage(const QString& applicationFolder,
                               const QString& installedFolder = InstalledFolder());

} // namespace netrove
