#include "storage/results/ResultsFormat.h"

#include <array>
#include <cstdint>
#include <cstdlib>

namespace {

void Expect(bool condition) {
    if (!condition)
        std::abort();
}

} // namespace

/// Any line gives a full path or none; and any name and folder without a comma are read back as
/// they were written, unless they would break the line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace netrove::ResultsFormat;
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const auto path = Path(bytes);
    Expect(!path || path->startsWith(QLatin1String("\\\\")) || path->startsWith(QLatin1Char('/')));
    static_cast<void>(IsHeader(bytes));

    const QString text = QString::fromUtf8(bytes);
    const qsizetype half = text.size() / 2;
    const std::array<QString, 3> fields{text.left(half), QLatin1String("\\\\") + text.mid(half),
                                        text};
    const QByteArray line = Line(fields);
    Expect(!line.contains('\n') && !line.contains('\r'));
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('\n')) &&
        !text.contains(QLatin1Char('\r')) && fields[0].isValidUtf16() && fields[1].isValidUtf16())
        Expect(Path(line) == fields[1] + fields[0]);
    return 0;
}
