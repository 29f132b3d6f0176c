#pragma once

namespace netrove {

/// Numbers of the sub-items of lvwDownloads. The row's own text is the file's name.
namespace DownloadItem {
inline constexpr int Location = 1; ///< with its closing "\"
inline constexpr int Size = 2;
inline constexpr int Date = 3;
inline constexpr int Attributes = 4;
inline constexpr int Status = 5;
inline constexpr int SizeKey = 6; ///< hidden sort key
inline constexpr int DateKey = 7; ///< hidden sort key
inline constexpr int CopyID = 8;  ///< hidden; empty until the copy is started
} // namespace DownloadItem

} // namespace netrove
