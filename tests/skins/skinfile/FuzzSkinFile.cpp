#include "runtime/RunTimeError.h"
#include "skins/skinfile/SkinFile.h"

#include <cstdint>
#include <cstdlib>

namespace {

using netrove::SkinFile;

void Expect(bool condition) {
    if (!condition)
        std::abort();
}

/// Reads the text as one that begins like a skin file, so that its members are reached soon.
void Read(const QString& text) {
    try {
        const SkinFile file(text);
        Expect(file.Name().size() <= SkinFile::LongestValue);
        const QString member = QStringLiteral("M");
        const auto number = file.Number(member);
        Expect(!number ||
               (*number >= -SkinFile::LargestNumber && *number <= SkinFile::LargestNumber));
        const auto color = file.Color(member);
        Expect(!color || *color <= 0xFFFFFF);
        static_cast<void>(file.Fraction(member));
        static_cast<void>(file.Boolean(member));
    } catch (const netrove::RunTimeError& failure) {
        Expect(!failure.Description().isEmpty());
    }
}

} // namespace

/// Any text gives members within the limits, or a run-time failure that says why not.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = QString::fromUtf8(QByteArrayView(data, static_cast<qsizetype>(size)));
    Read(text);
    Read(QLatin1String("<skin><member name='M' value='") + text + QLatin1String("'/></skin>"));
    Read(QLatin1String("<skin name='") + text);
    return 0;
}
