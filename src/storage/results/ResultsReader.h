#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <optional>

namespace netrove {

/// Reads a results file piece by piece, however long it or one of its lines is.
class ResultsReader {
public:
    /// Bytes of a line that are looked at; no path is as long. The rest of the line is ignored.
    static constexpr qint64 MaxLine = 64 * 1024;

    explicit ResultsReader(const QString& path) : file_(path) {}

    /// False if the file can't be opened, isn't a regular file or doesn't begin like a results
    /// file.
    [[nodiscard]] bool Open();

    /// Whether there is nothing left to read, or no more can be read.
    [[nodiscard]] bool AtEnd() const { return ended_; }

    /// Reads the next line, or the next piece of a long one. Returns the path that the line is
    /// about, if there is one; see ResultsFormat::Path.
    [[nodiscard]] std::optional<QString> NextPath();

private:
    [[nodiscard]] QByteArray ReadPiece();

    QFile file_;
    bool ended_ = false;
    bool inLine_ = false; ///< the last piece ended in the middle of a line
};

} // namespace netrove
