#pragma once

#include <QString>

/// The text files on the web server. An `answer` is the text of a file without the blanks at its
/// ends.
namespace netrove::WebFile {

/// The paths of the files on the site.
inline constexpr QLatin1String VersionPath("/files/Netrove2.ver");
inline constexpr QLatin1String NewsPath("/files/Netrove2.nwz");
inline constexpr QLatin1String InstallerPath("/files/Netrove2.dlf");
inline constexpr QLatin1String DonationPath("/files/Netrove.don");

/// The words that the files begin with, in upper or lower case.
inline constexpr QLatin1String VersionMarker("TBS_VER");
inline constexpr QLatin1String NewsMarker("TBS_NWZ");
inline constexpr QLatin1String InstallerMarker("TBS_DLF");
inline constexpr QLatin1String DonationMarker("TBS_DON");

/// The address of a file of the site, whether the site's own address ends in "/" or not.
[[nodiscard]] QString Address(const QString& site, QLatin1String path);

/// Whether the first seven characters are the marker.
[[nodiscard]] bool HasMarker(const QString& answer, QLatin1String marker);

/// What follows the marker and the one separating character after it.
[[nodiscard]] QString Payload(const QString& answer);

/// A payload in a form that a text box can show at once, while an endless line would take it
/// minutes: lines longer than any that a person writes are broken, and all but the first few
/// thousand lines left out.
[[nodiscard]] QString Shown(const QString& payload);

/// An address from a file, made fit to be opened: without the white space around it, such as the
/// file's last line end. Raises ErrorNumber::InvalidProcedureCall if it isn't an http or https
/// address, or is longer than browsers and servers accept.
[[nodiscard]] QString Link(const QString& text);

} // namespace netrove::WebFile
