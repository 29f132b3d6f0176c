#pragma once

#include <QString>
#include <QStringView>

namespace netrove {

/// Whether a text may stand between two "/" of a local path: it isn't empty, isn't "." or "..", and
/// holds neither a "/" nor a zero character. Any other text leads away from the folder before it or
/// ends the path early.
[[nodiscard]] bool IsLocalPathElement(QStringView text);

/// Whether a text may be a name in a network path (\\SERVER\SHARE\FOLDER\FILE): an element of a
/// local path without a "\". Names from servers, listings, files and the user must pass this test
/// before they become part of a path, an address or a request; a hostile one would lead out of the
/// share or folder that is meant. Checks with further rules (for a copy's target, a computer's
/// name) use this one first.
[[nodiscard]] bool IsPathElement(QStringView text);

/// Whether a text may be the name of a computer, a workgroup or a provider: a name in a network
/// path without a "|", which joins such names.
[[nodiscard]] bool IsNodeName(QStringView text);

/// The key for looking up a name of a computer, workgroup, share or provider: names that differ in
/// case alone have the same key. Each character is folded by itself, as SMB servers compare names:
/// "STRASSE" isn't "Straße".
[[nodiscard]] QString NameKey(const QString& name);

/// Whether two names of computers, or of workgroups, mean the same one.
[[nodiscard]] bool IsSameName(QStringView left, QStringView right);

/// The longest names.
namespace NameLimits {

/// Characters that the tree of the network keeps of a node's remote name (\\SERVER\SHARE), and of
/// each other text of its record. A longer one would be cut, and then mean another place.
constexpr qsizetype RemoteName = 255;

/// Bytes of a file's name: NAME_MAX of limits.h, which all usual file systems keep to.
constexpr qsizetype FileBytes = 255;

/// Characters of one label of a host's name (RFC 1035, 2.3.4).
constexpr qsizetype HostLabel = 63;

/// Bytes of a NetBIOS name without the byte that tells its type (RFC 1001, 5.2).
constexpr qsizetype NetBiosBytes = 15;

/// Bytes of a logon's user, domain or password: more than any server takes.
constexpr qsizetype LogonBytes = 1024;

} // namespace NameLimits

} // namespace netrove
