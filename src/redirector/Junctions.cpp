#include "redirector/Junctions.h"

#include "redirector/FolderKeys.h"
#include "runtime/FileAttribute.h"

#include <QHash>
#include <QStringView>

namespace netrove {
namespace {

/// How often one path may go through junctions of the same name.
constexpr qsizetype MaxPasses = 2;
constexpr qsizetype MaxJunctions = 10'000;

} // namespace

void Junctions::Note(const QString& folderKey, const SmbEntries& entries) {
    constexpr quint32 junction = FileAttribute::Directory | FileAttribute::ReparsePoint;
    for (const SmbEntry& entry : entries) {
        if ((entry.attributes & junction) == junction && keys_.size() < MaxJunctions)
            keys_.insert(KeyBelow(folderKey, entry.name));
    }
}

bool Junctions::IsInLoop(const QString& folderKey) const {
    if (keys_.isEmpty())
        return false;
    QHash<QStringView, qsizetype> passes;
    const QStringView key(folderKey);
    for (qsizetype begin = 0; begin < key.size();) {
        const qsizetype found = key.indexOf(u'\\', begin);
        const qsizetype end = found < 0 ? key.size() : found;
        if (keys_.contains(folderKey.left(end)) &&
            ++passes[key.sliced(begin, end - begin)] > MaxPasses)
            return true;
        begin = end + 1;
    }
    return false;
}

} // namespace netrove
