#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <optional>

namespace netrove {

/// Reads a results file piece by piece, however long it or one of its lines is.
class ResultsReader {
public:
    /// Bytes of a line that are looked at; no path is as long. What is behind them is passed over.
    static constexpr qint64 MaxLine = 64 * 1024;

    explicit ResultsReader(const QString& path) : file_(path) {}

    /// False where the file can't be opened, is no normal one or begins like no results file.
    [[nodiscard]] bool Open();

    /// Whether there is nothing left to read, or no more can be read.
    [[nodiscard]] bool AtEnd() const { return ended_; }

    /// Reads on, by a line or by a piece of one. The path that the line is about, if it tells one;
    /// see ResultsFormat::Path.
    [[nodiscard]] std::optional<QString> NextPath();

private:
    [[nodiscard]] QByteArray ReadPiece();

    QFile file_;
    bool ended_ = false;
    bool inLine_ = false; ///< the last piece ended in the middle of a line
};

} // namespace netrove
