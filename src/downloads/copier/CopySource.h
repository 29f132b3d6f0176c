#pragma once

#include "platform/LocalFiles.h"
#include "redirector/SmbPool.h"
#include "runtime/RunTimeError.h"

#include <QByteArrayView>
#include <QString>

#include <functional>

namespace netrove {

/// What tells one state of a file from another.
struct CopySourceState {
    qint64 length = 0;   ///< bytes
    qint64 modified = 0; ///< milliseconds since 1970 UTC

    friend bool operator==(const CopySourceState&, const CopySourceState&) = default;
};

/// A file that is copied. Calls block, call WhileWaiting() meanwhile where they wait for the
/// network, and raise a RunTimeError as FileAccess does.
class CopySource {
public:
    using Sink = std::function<void(QByteArrayView bytes)>;

    CopySource() = default;
    CopySource(const CopySource&) = delete;
    CopySource& operator=(const CopySource&) = delete;
    virtual ~CopySource() = default;

    /// Raises ErrorNumber::PermissionDenied for a folder too.
    [[nodiscard]] virtual CopySourceState Inspect() = 0;

    /// Gives the bytes from `offset` on to `sink`, in any number of pieces; fewer than `length`
    /// only where the file ends.
    virtual void Read(qint64 offset, quint32 length, const Sink& sink) = 0;
};

/// A file of the local file system.
class LocalCopySource : public CopySource {
public:
    explicit LocalCopySource(QString path) : path_(std::move(path)) {}

    [[nodiscard]] CopySourceState Inspect() override;
    void Read(qint64 offset, quint32 length, const Sink& sink) override;

private:
    QString path_;
    LocalFiles files_;
};

/// A file on a computer that is asked over SMB.
class SmbCopySource : public CopySource {
public:
    /// `request` names the file; the pool must outlive the source.
    SmbCopySource(SmbPool& pool, SmbRequest request) : pool_(pool), request_(std::move(request)) {}

    [[nodiscard]] CopySourceState Inspect() override;
    void Read(qint64 offset, quint32 length, const Sink& sink) override;

private:
    void Run(const SmbWorker::Part& part);
    [[nodiscard]] ErrorNumber ErrorOf(int status);

    SmbPool& pool_;
    SmbRequest request_;
    bool hasAnswered_ = false; ///< the file was there
};

} // namespace netrove
