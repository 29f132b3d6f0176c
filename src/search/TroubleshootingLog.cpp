#include "search/TroubleshootingLog.h"

#include "runtime/RunTimeError.h"

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
    PrintBlock({head, QLatin1String("Remote Name: ") + node.RemoteName(),
                QLatin1String("Resource Type: ") +
                    QString::number(static_cast<qint32>(node.ResourceType())),
                QLatin1String("Resource Type Name: ") + node.ResourceTypeName(),
                QLatin1String("Provider: ") + node.Provider()});
}

} // namespace netrove
