#include "platform/LocalListing.h"

#include "platform/TextEncoding.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"

#include <QSet>

#include <algorithm>
#include <cerrno>
#include <optional>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace netrove {
namespace {

/// Entries read between two calls of WhileWaiting(): some milliseconds even on a slow disk.
constexpr std::size_t EntriesPerWait = 4096;

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

bool IsAscii(QByteArrayView bytes) {
    unsigned char all = 0;
    for (const char byte : bytes)
        all |= static_cast<unsigned char>(byte);
    return all < 0x80;
}

/// Whether the given path to the open folder goes through a symbolic link.
bool ReachedThroughLink(int folder, const QByteArray& path) {
    const QByteArray self = "/proc/self/fd/" + QByteArray::number(folder);
    QByteArray real(4096, Qt::Uninitialized);
    const ssize_t length =
        readlink(self.constData(), real.data(), static_cast<std::size_t>(real.size()));
    return length < 0 || QByteArrayView(real).first(length) != path;
}

/// Whether the open folder is the same as one of the last `walked` folders above it in its path.
bool LeadsBack(int folder, QByteArray path, qsizetype walked) {
    if (walked == 0 || !ReachedThroughLink(folder, path))
        return false;
    struct stat own {};
    if (fstat(folder, &own) != 0)
        return false;
    for (; walked > 0 && path.contains('/'); --walked) {
        path.truncate(path.lastIndexOf('/'));
        struct stat above {};
        if (stat(path.constData(), &above) == 0 && above.st_ino == own.st_ino &&
            above.st_dev == own.st_dev)
            return true;
    }
    return false;
}

/// Decides what the entries of one open folder are.
class EntryKinds {
public:
    explicit EntryKinds(int folder) : folder_(folder) {}

    /// The attributes; nothing for an entry that isn't to be listed.
    [[nodiscard]] std::optional<quint32> Attributes(const dirent& entry) const {
        const quint32 hidden =
            entry.d_name[0] == '.' && !IsDots(entry.d_name) ? FileAttribute::Hidden : 0;
        switch (entry.d_type) {
        case DT_DIR:
            return hidden | FileAttribute::Directory;
        case DT_REG:
            return hidden | FileAttribute::Archive;
        case DT_LNK:
            return OfLink(entry, hidden);
        case DT_UNKNOWN:
            return OfUnknown(entry, hidden);
        default:
            return hidden;
        }
    }

private:
    static bool IsDots(QByteArrayView name) { return name == "." || name == ".."; }

    static quint32 OfMode(mode_t mode) {
        if (S_ISDIR(mode))
            return FileAttribute::Directory;
        return S_ISREG(mode) ? FileAttribute::Archive : 0;
    }

    [[nodiscard]] std::optional<quint32> OfUnknown(const dirent& entry, quint32 hidden) const {
        struct stat status {};
        if (fstatat(folder_, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
            return std::nullopt;
        if (S_ISLNK(status.st_mode))
            return OfLink(entry, hidden);
        return hidden | OfMode(status.st_mode);
    }

    [[nodiscard]] std::optional<quint32> OfLink(const dirent& entry, quint32 hidden) const {
        struct stat status {};
        if (fstatat(folder_, entry.d_name, &status, 0) != 0)
            return std::nullopt;
        return hidden | FileAttribute::ReparsePoint | OfMode(status.st_mode);
    }

    int folder_;
};

} // namespace

std::shared_ptr<const LocalListing> LocalListing::Read(const QByteArray& folder, qsizetype walked) {
    const OpenFolder open(opendir(folder.constData()));
    if (!open)
        return nullptr;
    if (LeadsBack(dirfd(open.get()), folder, walked)) {
        errno = ELOOP;
        return nullptr;
    }
    const std::shared_ptr<LocalListing> listing(new LocalListing);
    const EntryKinds kinds(dirfd(open.get()));
    std::size_t read = 0;
    while (const dirent* entry = readdir(open.get())) {
        const QByteArrayView name(entry->d_name);
        if (name.contains('\\'))
            continue;
        if (const std::optional<quint32> attributes = kinds.Attributes(*entry))
            listing->Add(*attributes, name);
        if (++read % EntriesPerWait == 0 && !WhileWaiting()) {
            errno = ECANCELED;
            return nullptr;
        }
    }
    if (listing->hasForeignNames_)
        listing->LeaveOutDoubles();
    return listing;
}

void LocalListing::Add(quint32 attributes, QByteArrayView name) {
    entries_.push_back({.begin = names_.size(),
                        .length = static_cast<quint32>(name.size()),
                        .attributes = attributes});
    names_ += name;
    if (!IsAscii(name) && !FromUtf8(name))
        hasForeignNames_ = true;
}

QByteArrayView LocalListing::Name(const Entry& entry) const {
    return QByteArrayView(names_).sliced(entry.begin, entry.length);
}

void LocalListing::LeaveOutDoubles() {
    QSet<QString> valid;
    for (const Entry& entry : entries_) {
        if (const std::optional<QString> text = FromUtf8(Name(entry)))
            valid.insert(*text);
    }
    std::erase_if(entries_, [&](const Entry& entry) {
        const QByteArrayView name = Name(entry);
        return !FromUtf8(name) && valid.contains(FromWindows1252(name));
    });
}

void LocalListing::Get(std::size_t number, FindData& data) const {
    const Entry& entry = entries_[number];
    const QByteArrayView name = Name(entry);
    data.attributes = entry.attributes;
    if (IsAscii(name))
        data.fileName = QLatin1String(name); // reuses the text's memory
    else
        data.fileName = FromUtf8OrWindows1252(name);
}

QByteArray LocalListing::EntryBytes(const QString& text, bool ignoringCase) const {
    QByteArrayView found;
    for (const Entry& entry : entries_) {
        const QByteArrayView name = Name(entry);
        const QString given = FromUtf8OrWindows1252(name);
        if (given == text)
            return name.toByteArray();
        if (ignoringCase && found.isEmpty() && EqualText(given, text))
            found = name;
    }
    return found.toByteArray();
}

} // namespace netrove
