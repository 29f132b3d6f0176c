#pragma once

#include "downloads/copier/CopyCrew.h"
#include "downloads/copier/CopyQ.h"
#include "redirector/Network.h"

#include <QHash>

#include <memory>

namespace netrove {

/// The program's copier. Several copies run at a time, over connections of their own, so that a
/// search goes on as if there were none.
///
/// A copy stands under a hidden name beside its target until it is whole; only then does it take
/// the place of what may be there, with the source's time. One that broke off is kept, and goes on
/// when the same file, still of the same size and time, is copied there again. Letting go of the
/// copier breaks off what runs.
///
/// The numbers of CopyDone: what FileAccess raises for the source, DeviceIOError where it breaks
/// off, FileAlreadyOpen where it changes meanwhile; for the target those of PartialFile.
class FileCopier : public CopyQ {
    Q_OBJECT

public:
    explicit FileCopier(Network& network, QObject* parent = nullptr);

    /// Raises PathFileAccessError for a target whose name isn't one (CheckTargetName), PathNotFound
    /// for a source that can't be a file's path, and what its provider says of a path that isn't
    /// there. Nothing is asked of a computer.
    [[nodiscard]] QString QueueCopy(const QString& source, const QString& destination,
                                    Existing existing = Existing::Keep) override;
    [[nodiscard]] std::optional<CopyProgress> Progress(const QString& id) const override;

private:
    [[nodiscard]] decltype(CopyOrder::file) Locate(const QString& source);
    void Finish(const QString& id, int errorNumber);

    Network& network_;
    qint64 lastId_ = 0;
    QHash<QString, std::shared_ptr<CopyMeter>> running_;
    std::unique_ptr<CopyCrew> crew_;
};

} // namespace netrove
