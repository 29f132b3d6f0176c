#pragma once

#include "downloads/copier/CopyMeter.h"
#include "redirector/Logons.h"
#include "redirector/SmbLimits.h"
#include "smb/SmbMessages.h"

#include <QString>

#include <cstddef>
#include <functional>
#include <memory>
#include <variant>

namespace netrove {

/// What a copier may use.
struct CopyLimits {
    QString helper; ///< the program that speaks SMB
    SmbLimits smb = {};
    /// Copies at a time, each over a connection of its own. Client editions of Windows take 20
    /// connections in all.
    std::size_t copies = 16;
    std::shared_ptr<Logons> logons = nullptr; ///< whose reads they are; without it a guest's
};

/// A copy to be made. The file is read over SMB or from a local path.
struct CopyOrder {
    QString id;
    QString source; ///< as it was asked for
    std::variant<SmbRequest, QString> file;
    QString target; ///< a full local path
    std::shared_ptr<CopyMeter> meter;
};

/// The threads that copy, each with SMB helpers of its own. They are started when there is work
/// for them and end with the object.
class CopyCrew {
public:
    /// Called once for each order, on a thread of the crew; `errorNumber` is 0 where all went well.
    using Done = std::function<void(const QString& id, int errorNumber)>;

    CopyCrew(CopyLimits limits, Done done);
    CopyCrew(const CopyCrew&) = delete;
    CopyCrew& operator=(const CopyCrew&) = delete;
    /// Breaks off what runs, without waiting for anybody but for a moment; `done` isn't called any
    /// more.
    ~CopyCrew();

    /// Raises ErrorNumber::OutOfMemory where the system has no thread for it.
    void Add(CopyOrder order);

private:
    class Member;
    struct Board;

    std::shared_ptr<Board> board_;
};

} // namespace netrove
