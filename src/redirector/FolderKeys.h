#pragma once

#include "redirector/UncPath.h"
#include "runtime/Names.h"

#include <QString>

namespace netrove {

/// Names for servers, shares and folders of the SMB network: different texts mean different
/// places. A server may have folders whose names differ in case alone.
[[nodiscard]] inline QString ServerKey(const QString& server) {
    return NameKey(server);
}

[[nodiscard]] inline QString KeyBelow(const QString& key, const QString& name) {
    return key + u'\\' + name;
}

/// The key of a file, made from its folder's: no folder has such a key.
[[nodiscard]] inline QString FileKey(const QString& folder, const QString& name) {
    return KeyBelow(KeyBelow(folder, name), QString());
}

/// The key of the folder that the path's first `elements` elements lead to.
[[nodiscard]] inline QString FolderKey(const UncPath& path, qsizetype elements) {
    QString key = ServerKey(path.Server());
    if (!path.Share().isEmpty())
        key = KeyBelow(key, NameKey(path.Share()));
    for (qsizetype at = 0; at < elements; ++at)
        key = KeyBelow(key, path.Elements()[at]);
    return key;
}

[[nodiscard]] inline QString FolderKey(const UncPath& path) {
    return FolderKey(path, path.Elements().size());
}

} // namespace netrove
