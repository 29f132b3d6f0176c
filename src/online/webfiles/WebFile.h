#pragma once

#include <QString>

/// The text files on the web server. An answer has had the blanks at both its ends removed.
namespace netrove::WebFile {

/// What of the files lies where on the site.
inline constexpr QLatin1String VersionPath("/files/Netrove2.ver");
inline constexpr QLatin1String NewsPath("/files/Netrove2.nwz");
inline constexpr QLatin1String InstallerPath("/files/Netrove2.dlf");
inline constexpr QLatin1String DonationPath("/files/Netrove.don");

/// The words that they begin with, in any case.
inline constexpr QLatin1String VersionMarker("TBS_VER");
inline constexpr QLatin1String NewsMarker("TBS_NWZ");
inline constexpr QLatin1String InstallerMarker("TBS_DLF");
inline constexpr QLatin1String DonationMarker("TBS_DON");

/// The address of a file of the site, whether the site's own address ends in "/" or not.
[[nodiscard]] QString Address(const QString& site, QLatin1String path);

/// Whether the first seven characters are the marker.
[[nodiscard]] bool HasMarker(const QString& answer, QLatin1String marker);

/// What stands behind the marker and the one character that separates it.
[[nodiscard]] QString Payload(const QString& answer);

/// A payload as a text box can show it at once, as a line without end would take it minutes: lines
/// are broken where they are longer than any that a person writes, and a few thousand shown.
[[nodiscard]] QString Shown(const QString& payload);

/// An address from a file, as it may be opened: without white space around, as a file ends with a
/// line end. Raises ErrorNumber::InvalidProcedureCall where it isn't an http or https one, or is
/// longer than what browsers and servers take.
[[nodiscard]] QString Link(const QString& text);

} // namespace netrove::WebFile
