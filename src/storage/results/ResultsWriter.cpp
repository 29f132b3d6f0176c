#include "storage/results/ResultsWriter.h"

#include "runtime/RunTimeError.h"

#include <QFileInfo>

namespace netrove {
namespace {

RunTimeError FailureOf(QFileDevice::FileError error) {
    if (error == QFileDevice::ResourceError)
        return RunTimeError(ErrorNumber::DiskFull);
    return RunTimeError(error == QFileDevice::WriteError ? ErrorNumber::DeviceIOError
                                                         : ErrorNumber::PathFileAccessError);
}

} // namespace

ResultsWriter::ResultsWriter(const QString& path) : file_(path) {
    const QFileInfo info(path);
    // Never a device or a folder in a file's place.
    if ((info.exists() && !info.isFile()) || !file_.open(QIODevice::WriteOnly))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
}

void ResultsWriter::WriteLine(const QByteArray& line) {
    if (file_.write(line + "\r\n") != line.size() + 2)
        throw FailureOf(file_.error());
}

void ResultsWriter::Flush() {
    // What commit() itself flushes it believes to be written, also on a full disk.
    if (!file_.flush())
        throw FailureOf(file_.error());
}

void ResultsWriter::Commit() {
    Flush();
    if (!file_.commit())
        throw FailureOf(file_.error());
}

} // namespace netrove
