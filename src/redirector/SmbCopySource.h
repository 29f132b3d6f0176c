#pragma once

#include "redirector/CopySource.h"
#include "redirector/SmbPool.h"
#include "runtime/RunTimeError.h"

#include <stop_token>

namespace netrove {

/// A file on a computer that is asked over SMB.
class SmbCopySource : public CopySource {
public:
    /// `request` names the file; the pool must outlive the source.
    SmbCopySource(SmbPool& pool, SmbRequest request, std::stop_token stop)
        : pool_(pool), request_(std::move(request)), stop_(std::move(stop)) {}

    [[nodiscard]] CopySourceState Inspect() override;
    void Read(qint64 offset, quint32 length, const Sink& sink) override;

private:
    void Run(const SmbWorker::Part& part);
    [[nodiscard]] ErrorNumber ErrorOf(int status);

    SmbPool& pool_;
    SmbRequest request_;
    const std::stop_token stop_;
    bool hasAnswered_ = false; ///< the file was there
};

} // namespace netrove
