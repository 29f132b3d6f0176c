#pragma once

#include "platform/Files.h"
#include "platform/LocalListing.h"

#include <QByteArray>

#include <chrono>

namespace netrove {

/// Files and folders of the local file system by their full paths, in the system's own form.
///
/// Attributes: FileAttribute::ReadOnly where nobody may write, or not this user; Hidden for a
/// leading dot; Archive for ordinary files. Listings are those of LocalListing: every entry that
/// they give can be reached by its text.
class LocalFiles : public FileAccess {
public:
    enum class NameCase {
        Exact,
        /// An element that doesn't exist as written stands for the first one that differs from it
        /// only in case, as on a file server.
        Ignored,
    };

    explicit LocalFiles(NameCase nameCase = NameCase::Exact) : nameCase_(nameCase) {}

    [[nodiscard]] std::unique_ptr<FileFind> FindFirst(const QString& searchPath,
                                                      FindData& first) override;
    [[nodiscard]] bool CanEnter(const QString& path) override;
    [[nodiscard]] FileInfo Info(const QString& path) override;
    [[nodiscard]] QByteArray Read(const QString& path, qint64 offset, qint64 length) override;
    /// The path itself, spelt as on disk; nothing where there is no such file.
    [[nodiscard]] std::optional<QString> LocalPath(const QString& path) override;

    /// The entries of a folder, whose path is given without "*.*"; null as in FindFirst. If the
    /// same folder is asked for twice in a row, and the first answer is still in use and at most a
    /// second old, the second one has the same entries: a search lists each folder twice in a row.
    /// Null also where a link leads back: the folder is the same as one of the `walked` folders
    /// above it in its path.
    [[nodiscard]] std::unique_ptr<FileFind> List(const QString& folder, FindData& first,
                                                 qsizetype walked = 0);

private:
    [[nodiscard]] std::shared_ptr<const LocalListing> Listing(const QString& folder,
                                                              qsizetype walked);
    [[nodiscard]] QByteArray Existing(const QString& path) const;
    [[nodiscard]] QByteArray LookUp(const QString& path) const;

    NameCase nameCase_;
    QString lastFolder_;
    std::weak_ptr<const LocalListing> lastListing_;
    std::chrono::steady_clock::time_point lastRead_;
};

} // namespace netrove
