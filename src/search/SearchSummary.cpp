#include "search/SearchSummary.h"

namespace netrove {

QString FilesInSeconds(qint64 files, qint64 seconds) {
    return QString::number(files) + QStringLiteral(" files in ") + QString::number(seconds) +
           (seconds == 1 ? QStringLiteral(" second.") : QStringLiteral(" seconds."));
}

QString SearchSummary(bool aborted, qint64 files, qint64 seconds,
                      std::optional<qint32> maxReturnFiles) {
    QString summary =
        aborted ? QStringLiteral("Aborted, but returned ") : QStringLiteral("Returned ");
    summary += FilesInSeconds(files, seconds);
    if (maxReturnFiles)
        summary += QStringLiteral(" (Max return is set to ") + QString::number(*maxReturnFiles) +
                   QLatin1Char(')');
    return summary;
}

} // namespace netrove
