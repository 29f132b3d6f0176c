#pragma once

#include "platform/Files.h"
#include "redirector/SmbLists.h"
#include "smb/SmbMessages.h"

#include <vector>

namespace netrove {

/// One file of a server, as its folder's listing describes it, and the pieces that are read of it.
/// The paths that its functions are given don't matter. Used by one thread at a time.
class SmbFileReader : public FileAccess {
public:
    /// `request` asks for a piece; its offset and length are filled in here.
    SmbFileReader(SmbRequest request, SmbEntry entry, SmbRun run)
        : request_(std::move(request)), entry_(std::move(entry)), run_(std::move(run)) {}

    [[nodiscard]] std::unique_ptr<FileFind> FindFirst(const QString& searchPath,
                                                      FindData& first) override;
    [[nodiscard]] bool CanEnter(const QString& path) override;
    [[nodiscard]] FileInfo Info(const QString& path) override;
    /// Raises ErrorNumber::DeviceIOError for any failure.
    [[nodiscard]] QByteArray Read(const QString& path, qint64 offset, qint64 length) override;
    [[nodiscard]] std::optional<QString> LocalPath(const QString& path) override;

    /// The errno of the read that failed, 0 where none has.
    [[nodiscard]] int Status() const { return status_; }
    [[nodiscard]] std::vector<SmbPiece> TakePieces() { return std::move(pieces_); }

private:
    SmbRequest request_;
    SmbEntry entry_;
    SmbRun run_;
    std::vector<SmbPiece> pieces_;
    int status_ = 0;
};

} // namespace netrove
