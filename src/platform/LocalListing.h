#pragma once

#include "platform/Files.h"

#include <QByteArray>

#include <memory>
#include <vector>

namespace netrove {

/// What a local folder held when it was read; it doesn't change. Nothing stays open, so that a
/// walk of any depth holds no file descriptors.
///
/// A name that isn't valid UTF-8 is given out as Windows-1252 reads it, and left out where another
/// entry has that text already; EntryBytes finds the way back. A name with a backslash, which
/// can't stand in a network path, and a link that leads nowhere are left out. A symbolic link to
/// a folder is a folder with FileAttribute::ReparsePoint.
class LocalListing {
public:
    /// Null where the folder can't be read; then errno says why: ECANCELED where the wait for it
    /// was given up, ELOOP where it is the same folder as one of the `walked` folders above it in
    /// its path, so that a walk through links doesn't go on for ever.
    [[nodiscard]] static std::shared_ptr<const LocalListing> Read(const QByteArray& folder,
                                                                  qsizetype walked = 0);

    [[nodiscard]] std::size_t Count() const { return entries_.size(); }

    /// Puts an entry, counted from 0, into `data`. Its attributes are those that come with the
    /// listing: read-only isn't among them.
    void Get(std::size_t number, FindData& data) const;

    /// The name on disk of the entry that was given out as `text`, or else of the first one that
    /// differs from it only in case, if `ignoringCase`; empty if there is none.
    [[nodiscard]] QByteArray EntryBytes(const QString& text, bool ignoringCase) const;

private:
    struct Entry {
        qsizetype begin; ///< in names_
        quint32 length;
        quint32 attributes;
    };

    LocalListing() = default;
    [[nodiscard]] QByteArrayView Name(const Entry& entry) const;
    void Add(quint32 attributes, QByteArrayView name);
    void LeaveOutDoubles();

    QByteArray names_;
    std::vector<Entry> entries_;
    bool hasForeignNames_ = false; ///< some aren't valid UTF-8
};

} // namespace netrove
