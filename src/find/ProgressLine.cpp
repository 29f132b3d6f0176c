#include "find/ProgressLine.h"

#include "find/ConsoleText.h"
#include "runtime/SourceText.h"
#include "services/CompactPath.h"

namespace netrove {
namespace {

constexpr qint64 MillisecondsBetween = 100;
constexpr int UsualColumns = 80;
const char* const EraseLine = "\r\x1b[K";

} // namespace

void ProgressLine::Show(qint32 found, const QString& place) {
    if (!output_.IsTerminal() || (shown_.isValid() && !shown_.hasExpired(MillisecondsBetween)))
        return;
    const int columns = output_.Columns() > 0 ? output_.Columns() : UsualColumns;
    const QString count = tr("%n found", nullptr, found) + "  "_L1;
    // The last column stays free: behind it a terminal would go to the next line.
    const QString path = CompactPath(Escaped(place, Escaping::AllControls),
                                     columns - TerminalColumns(count) - 1, TerminalColumns);
    output_.Write(EraseLine + (count + path).toUtf8());
    output_.Flush();
    shown_.start();
    isShown_ = true;
}

void ProgressLine::Clear() {
    if (!isShown_)
        return;
    output_.Write(EraseLine);
    output_.Flush();
    isShown_ = false;
}

} // namespace netrove
