#pragma once

#include "downloads/copier/CopyMeter.h"
#include "downloads/copier/FileCopy.h"
#include "redirector/RemotePlace.h"

#include <QString>

#include <cstddef>
#include <functional>
#include <memory>
#include <thread>
#include <variant>
#include <vector>

namespace netrove {

/// A copy to be made. The file is read from a remote place or from a local path.
struct CopyOrder {
    QString id;
    QString source; ///< as the caller named it
    std::variant<std::shared_ptr<const RemotePlace>, QString> file;
    CopyTarget target;
    std::shared_ptr<CopyMeter> meter;
};

/// The threads that copy, each over connections of its own; they share what they learn about dead
/// computers. They are started when there is work for them, and end with the object.
class CopyCrew {
public:
    /// Called once for each order, on a thread of the crew; `errorNumber` is 0 where all went well.
    using Done = std::function<void(const QString& id, int errorNumber)>;

    explicit CopyCrew(Done done);
    CopyCrew(const CopyCrew&) = delete;
    CopyCrew& operator=(const CopyCrew&) = delete;
    /// Breaks off the running copies; `done` isn't called any more. A thread that hangs in the
    /// middle of a step, as on a disk that is gone, is waited for only briefly.
    ~CopyCrew();

    /// Queues a copy. Raises ErrorNumber::OutOfMemory if there is no thread yet and the system
    /// can't start one.
    void Add(CopyOrder order);

private:
    class Member;
    struct Board;

    std::shared_ptr<Board> board_;
    std::vector<std::jthread> threads_;
};

} // namespace netrove
