#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace netrove {

/// Writes a results file line by line. What was written before a failure stays in it.
///
/// All its functions raise ErrorNumber::DiskFull, DeviceIOError or PathFileAccessError.
class ResultsWriter {
public:
    /// Makes the file, or empties an existing one. Raises for a device or a folder.
    explicit ResultsWriter(const QString& path);

    void WriteLine(const QByteArray& line);
    void Close();

private:
    void Check() const;

    QFile file_;
};

} // namespace netrove
