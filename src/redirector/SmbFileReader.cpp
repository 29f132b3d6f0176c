#include "redirector/SmbFileReader.h"

#include "runtime/RunTimeError.h"

#include <limits>

namespace netrove {

std::unique_ptr<FileFind> SmbFileReader::FindFirst(const QString& /*searchPath*/,
                                                   FindData& /*first*/) {
    return nullptr;
}

bool SmbFileReader::CanEnter(const QString& /*path*/) {
    return false;
}

FileInfo SmbFileReader::Info(const QString& /*path*/) {
    return {.attributes = entry_.attributes,
            .length = entry_.length,
            .modified = QDateTime::fromMSecsSinceEpoch(entry_.modified)};
}

QByteArray SmbFileReader::Read(const QString& /*path*/, qint64 offset, qint64 length) {
    if (offset < 0 || length < 0 || length > std::numeric_limits<qint32>::max())
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    request_.offset = offset;
    request_.length = static_cast<quint32>(length);
    QByteArray bytes;
    status_ = FetchPiece(request_, run_, bytes);
    if (status_ != 0)
        throw RunTimeError(ErrorNumber::DeviceIOError);
    pieces_.push_back({.offset = offset, .asked = length, .bytes = bytes});
    return bytes;
}

std::optional<QString> SmbFileReader::LocalPath(const QString& /*path*/) {
    return std::nullopt;
}

} // namespace netrove
