#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>

namespace netrove {

/// Writes a results file beside the one that it will replace. Until Commit() has come to its end
/// there is the earlier file, or none; then there is the new one, with what was written.
///
/// Everything raises ErrorNumber::DiskFull, DeviceIOError or PathFileAccessError.
class ResultsWriter {
public:
    explicit ResultsWriter(const QString& path);

    void WriteLine(const QByteArray& line);
    /// Raises here, and not in Commit(), where the disk is full.
    void Flush();
    void Commit();

private:
    QSaveFile file_;
};

} // namespace netrove
