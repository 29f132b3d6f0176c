#pragma once

#include <QtGlobal>

namespace netrove {

/// Attribute bits of a file or folder, as SMB and the rules count them.
namespace FileAttribute {
inline constexpr quint32 ReadOnly = 1;
inline constexpr quint32 Hidden = 2;
inline constexpr quint32 System = 4;
inline constexpr quint32 Directory = 16;
inline constexpr quint32 Archive = 32;
/// A junction, a link or another point that leads out of the tree ([MS-FSCC] 2.6).
inline constexpr quint32 ReparsePoint = 0x400;
/// The content lies on slow storage: opening the file would fetch it ([MS-FSCC] 2.6).
inline constexpr quint32 Offline = 0x1000;
} // namespace FileAttribute

} // namespace netrove
