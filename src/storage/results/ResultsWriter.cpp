#include "storage/results/ResultsWriter.h"

#include "runtime/RunTimeError.h"

#include <QFileInfo>

namespace netrove {

ResultsWriter::ResultsWriter(const QString& path) : file_(path) {
    const QFileInfo info(path);
    if ((info.exists() && !info.isFile()) ||
        !file_.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
}

void ResultsWriter::WriteLine(const QByteArray& line) {
    file_.write(line + "\r\n");
    Check();
}

void ResultsWriter::Close() {
    // Closing alone wouldn't tell whether there was room for the rest.
    file_.flush();
    Check();
    file_.close();
}

void ResultsWriter::Check() const {
    switch (file_.error()) {
    case QFileDevice::NoError:
        return;
    case QFileDevice::ResourceError:
        throw RunTimeError(ErrorNumber::DiskFull);
    case QFileDevice::WriteError:
        throw RunTimeError(ErrorNumber::DeviceIOError);
    default:
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    }
}

} // namespace netrove
