#include "search/SearchSummary.h"

#include "runtime/SourceText.h"

namespace netrove {

QString FilesInSeconds(qint64 files, qint64 seconds) {
    return QString::number(files) + u" files in "_s + QString::number(seconds) +
           (seconds == 1 ? u" second."_s : u" seconds."_s);
}

QString SearchSummary(bool aborted, qint64 files, qint64 seconds,
                      std::optional<qint32> maxReturnFiles) {
    QString summary = aborted ? u"Aborted, but returned "_s : u"Returned "_s;
    summary += FilesInSeconds(files, seconds);
    if (maxReturnFiles)
        summary += u" (Max return is set to "_s + QString::number(*maxReturnFiles) + u')';
    return summary;
}

} // namespace netrove
