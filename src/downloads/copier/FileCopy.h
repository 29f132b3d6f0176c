#pragma once

#include "downloads/copier/CopyMeter.h"
#include "redirector/CopySource.h"

#include <QString>

#include <functional>

namespace netrove {

class PartialFile;

/// One copy, from its beginning to its end.
class FileCopy {
public:
    /// `name` tells the source from others, also at another run of the program. `check` is called
    /// between the steps and may raise an exception, which ends the copy and leaves what is there
    /// to a later one.
    FileCopy(CopySource& source, QString name, QString target, CopyMeter& meter,
             std::function<void()> check)
        : source_(source)
        , name_(std::move(name))
        , target_(std::move(target))
        , meter_(meter)
        , check_(std::move(check)) {}

    /// Raises a RunTimeError where the copy can't be had: the number of the source's or the
    /// target's failure, DiskFull, or FileAlreadyOpen where somebody changes the file. The target
    /// is then what it was before. Blocks.
    void Run();

private:
    void Fill(PartialFile& partial, qint64 length);
    void CheckUnchanged(const CopySourceState& before);

    CopySource& source_;
    QString name_;
    QString target_;
    CopyMeter& meter_;
    std::function<void()> check_;
};

} // namespace netrove
