#include "redirector/SmbCopySource.h"

#include "redirector/SmbErrors.h"
#include "runtime/FileAttribute.h"
#include "smb/SmbMemory.h"

#include <optional>

namespace netrove {

const quint32 CopySource::MaxRead = SmbMemory::Bytes;

CopySourceState SmbCopySource::Inspect() {
    request_.kind = SmbRequest::Kind::Inspect;
    std::optional<SmbEntry> file;
    Run([&](SmbAnswer& part) {
        const auto* some = std::get_if<SmbEntries>(&part);
        if (!some || file || some->size() != 1)
            return false;
        file = some->front();
        return true;
    });
    if (!file)
        throw RunTimeError(ErrorNumber::DeviceIOError);
    if ((file->attributes & FileAttribute::Directory) != 0)
        throw RunTimeError(ErrorNumber::PermissionDenied);
    hasAnswered_ = true;
    return {.length = file->length, .modified = file->modified};
}

void SmbCopySource::Read(qint64 offset, quint32 length, const Sink& sink) {
    request_.kind = SmbRequest::Kind::Fetch;
    request_.offset = offset;
    request_.length = length;
    qint64 left = length;
    Run([&](SmbAnswer& part) {
        const auto* data = std::get_if<SmbData>(&part);
        if (!data || data->bytes.size() > left)
            return false;
        left -= data->bytes.size();
        sink(data->bytes);
        return true;
    });
}

void SmbCopySource::Run(const SmbWorker::Part& part) {
    if (const int status = pool_.Run(request_, part, stop_); status != 0)
        throw RunTimeError(ErrorOf(status));
}

/// The path of a file that has answered before isn't wrong: then it is the way there that fails.
ErrorNumber SmbCopySource::ErrorOf(int status) {
    const ErrorNumber number = ErrorOfSmbRequest(
        pool_, request_, status, hasAnswered_ ? SmbAction::Read : SmbAction::Look, stop_);
    return hasAnswered_ && number == ErrorNumber::PathNotFound ? ErrorNumber::DeviceIOError
                                                               : number;
}

} // namespace netrove
