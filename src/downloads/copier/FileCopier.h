#pragma once

#include "downloads/copier/CopyCrew.h"
#include "downloads/copier/CopyQ.h"
#include "redirector/Network.h"

#include <QHash>

#include <memory>

namespace netrove {

/// The program's copier. Several copies run at a time, over connections of their own, so that they
/// don't hold up a search.
///
/// Until a copy is complete it has a hidden name beside its target; only then does it get the
/// target's name, and the source's time. A copy that broke off is kept, and goes on when the same
/// file, with the same size and time, is copied to the same place again. The destructor breaks off
/// the running copies.
///
/// The error numbers of CopyDone: for the source what FileAccess raises, DeviceIOError if it breaks
/// off, FileAlreadyOpen if it changes meanwhile; for the target those of PartialFile.
class FileCopier : public CopyQ {
    Q_OBJECT

public:
    explicit FileCopier(Network& network, QObject* parent = nullptr);

    /// Raises PathFileAccessError for a target whose name isn't valid (CheckTargetName),
    /// PathNotFound for a source that can't be a file's path, and for a path that doesn't exist
    /// what its provider raises. Asks no computer.
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
