#include "search/TroubleshootingLog.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

namespace netrove {
namespace {

QByteArray LogLine(QString line) {
    for (QChar& character : line) {
        if (character.category() == QChar::Other_Control)
            character = QChar::ReplacementCharacter;
    }
    return line.toUtf8() + QByteArrayLiteral("\r\n");
}

} // namespace

void TroubleshootingLog::Open(const QString& path) {
    file_.setFileName(path);
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
}

void TroubleshootingLog::PrintBlock(const QStringList& lines) {
    if (!IsOn() || !file_.isOpen())
        return;
    for (const QString& line : lines)
        file_.write(LogLine(line));
    file_.write(QByteArrayLiteral(" \r\n"));
    file_.flush();
}

void TroubleshootingLog::PrintNode(const QString& head, const NetResource& node) {
    if (!IsOn())
        return;
    PrintBlock({head, "Remote Name: "_L1 + node.RemoteName(),
                "Resource Type: "_L1 + QString::number(static_cast<qint32>(node.ResourceType())),
                "Resource Type Name: "_L1 + node.ResourceTypeName(),
                "Provider: "_L1 + node.Provider()});
}

} // namespace netrove
