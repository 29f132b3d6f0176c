#pragma once

#include "downloads/copier/CopyDisk.h"
#include "downloads/copier/CopyMeter.h"
#include "redirector/CopySource.h"

#include <QString>

#include <functional>

namespace netrove {

class PartialFile;

/// Where a copy goes.
struct CopyTarget {
    QString path; ///< a full local one
    bool mayReplace = false;
};

/// One copy, from its beginning to its end.
class FileCopy {
public:
    /// `name` tells the source from others, also at another run of the program. `check` is called
    /// between the steps and may raise an exception, which ends the copy and leaves what is there
    /// to a later one.
    FileCopy(CopySource& source, QString name, CopyTarget target, CopyMeter& meter,
             std::function<void()> check, CopyDisk& disk = CopyDisk::System())
        : source_(source)
        , name_(std::move(name))
        , target_(std::move(target))
        , meter_(meter)
        , check_(std::move(check))
        , disk_(disk) {}

    /// Raises a RunTimeError where the copy can't be had: the number of the source's or the
    /// target's failure, DiskFull, FileAlreadyOpen where somebody changes the file, or
    /// FileAlreadyExists where there is a target that may not be replaced. The target is then what
    /// it was before. Blocks.
    void Run();

private:
    void Fill(PartialFile& partial, qint64 length);
    void CheckUnchanged(const CopySourceState& before);

    CopySource& source_;
    QString name_;
    CopyTarget target_;
    CopyMeter& meter_;
    std::function<void()> check_;
    CopyDisk& disk_;
};

} // namespace netrove
