#include "storage/results/ResultsReader.h"

#include "storage/results/ResultsFormat.h"

#include <QFileInfo>

namespace netrove {

bool ResultsReader::Open() {
    // Opening a pipe would wait for its other end.
    return QFileInfo(file_.fileName()).isFile() && file_.open(QIODevice::ReadOnly) &&
           ResultsFormat::IsHeader(ReadPiece());
}

std::optional<QString> ResultsReader::NextPath() {
    const bool isRest = inLine_;
    const QByteArray piece = ReadPiece();
    return isRest ? std::nullopt : ResultsFormat::Path(piece);
}

QByteArray ResultsReader::ReadPiece() {
    QByteArray piece = file_.readLine(MaxLine);
    ended_ = piece.isEmpty() || file_.atEnd();
    inLine_ = !piece.endsWith('\n');
    while (piece.endsWith('\n') || piece.endsWith('\r'))
        piece.chop(1);
    return piece;
}

} // namespace netrove
