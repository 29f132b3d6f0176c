#pragma once

#include "platform/LocalFiles.h"
#include "redirector/CopySource.h"

#include <QString>

namespace netrove {

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

} // namespace netrove
