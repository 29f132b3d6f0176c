#include "fakes/Fuzz.h"
#include "storage/results/ResultsFormat.h"

#include <array>

/// Any line gives a full path or none; and any name and folder without a comma are read back as
/// they were written, unless they would break the line.
void netrove::Fuzz(const QByteArray& bytes) {
    const auto path = ResultsFormat::Path(bytes);
    Require(!path || path->startsWith(QLatin1String("\\\\")) || path->startsWith(QLatin1Char('/')));
    static_cast<void>(ResultsFormat::IsHeader(bytes));

    const QString text = QString::fromUtf8(bytes);
    const qsizetype half = text.size() / 2;
    const std::array<QString, 3> fields{text.left(half), QLatin1String("\\\\") + text.mid(half),
                                        text};
    const QByteArray line = ResultsFormat::Line(fields);
    Require(!line.contains('\n') && !line.contains('\r'));
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('\n')) &&
        !text.contains(QLatin1Char('\r')) && fields[0].isValidUtf16() && fields[1].isValidUtf16())
        Require(ResultsFormat::Path(line) == fields[1] + fields[0]);
}
