#include "redirector/FolderTrail.h"

#include "redirector/FolderKeys.h"
#include "runtime/FileAttribute.h"

namespace netrove {

/// The order of a listing doesn't count.
FolderPrint PrintOf(const SmbFolder& folder, const SmbEntries& entries) {
    FolderPrint print{.folder = folder};
    for (const SmbEntry& entry : entries) {
        if ((entry.attributes & FileAttribute::Directory) != 0)
            print.subfolders += qHash(entry.name);
    }
    return print;
}

FolderTrail FolderTrail::To(const QString& folderKey) const {
    FolderTrail trail = *this;
    while (trail.last_ && !folderKey.startsWith(KeyBelow(trail.last_->key, QString())))
        trail.last_ = trail.last_->above;
    return trail;
}

FolderTrail FolderTrail::With(const QString& folderKey, const FolderPrint& print) const {
    FolderTrail trail;
    trail.last_ = std::make_shared<const Link>(Link{folderKey, print, last_});
    return trail;
}

bool FolderTrail::Passes(const FolderPrint& print) const {
    for (const Link* link = last_.get(); link != nullptr; link = link->above.get()) {
        if (link->print.IsSame(print))
            return true;
    }
    return false;
}

} // namespace netrove
