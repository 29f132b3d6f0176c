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
    QString path; ///< a full local path
    bool mayReplace = false;
};

/// One copy, from start to end.
class FileCopy {
public:
    /// `name` tells the source from others, even in another run of the program. `check` is called
    /// between the steps and may raise an exception, which ends the copy; what has been copied is
    /// left for a later copy to continue.
    FileCopy(CopySource& source, QString name, CopyTarget target, CopyMeter& meter,
             std::function<void()> check, CopyDisk& disk = CopyDisk::System())
        : source_(source)
        , name_(std::move(name))
        , target_(std::move(target))
        , meter_(meter)
        , check_(std::move(check))
        , disk_(disk) {}

    /// Makes the copy; blocks until its end. Raises a RunTimeError if that fails: with the number
    /// of the source's or the target's failure, DiskFull, FileAlreadyOpen if somebody changes the
    /// file, or FileAlreadyExists if there is a target that may not be replaced. The target is then
    /// as it was before.
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
