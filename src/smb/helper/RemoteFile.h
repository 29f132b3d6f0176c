#pragma once

#include "smb/SmbMemory.h"
#include "smb/SmbMessages.h"

#include <QByteArray>

#include <functional>
#include <memory>

namespace netrove {

/// A file on a server. As reads of one file follow each other, it stays open between them, which
/// saves two of three round trips. Inspect, Read and Fetch open it if need be, and return 0 or an
/// errno.
class RemoteFile {
public:
    /// Takes one part of an answer; false if no more is wanted.
    using Part = std::function<bool(const SmbAnswer& part)>;

    RemoteFile() = default;
    RemoteFile(const RemoteFile&) = delete;
    RemoteFile& operator=(const RemoteFile&) = delete;
    ~RemoteFile() { Close(); }

    [[nodiscard]] int Inspect(const QByteArray& url, const Part& part);
    [[nodiscard]] int Read(const SmbRequest& request, const QByteArray& url, const Part& part);
    /// Reads into the memory that is shared with the program.
    [[nodiscard]] int Fetch(const SmbRequest& request, const QByteArray& url, const Part& part);

    void Close();

private:
    [[nodiscard]] int Open(const QByteArray& url);
    [[nodiscard]] int ReadPieces(const SmbRequest& request, const Part& part);
    [[nodiscard]] int FetchPieces(const SmbRequest& request, const Part& part);

    QByteArray url_;
    int file_ = -1;
    std::unique_ptr<SmbMemory> memory_; ///< null until it is needed
};

} // namespace netrove
