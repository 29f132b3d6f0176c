#include "platform/IniLine.h"
#include "platform/IniText.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Expect(bool condition) {
    if (!condition)
        std::abort();
}

int Lines(const netrove::IniText& text) {
    return static_cast<int>(text.ToBytes().count('\n'));
}

} // namespace

/// Whatever the text is, what is written can be read, what is removed is gone, all else stays; and
/// a text that was written reads as the same text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using netrove::IniText;
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    IniText text(bytes);
    const QByteArray written = text.ToBytes();
    Expect(IniText(written).ToBytes() == written || written.startsWith("\xEF\xBB\xBF"));

    // The first line is a value, and names that it may hold are looked for.
    const QString value =
        QString::fromUtf8(bytes).section(QLatin1Char('\n'), 0, 0).remove(QLatin1Char('\r'));
    for (const QString& section : {QStringLiteral("a"), QStringLiteral("New")}) {
        const bool hadSection = text.Value(section, QStringLiteral("k")).has_value();
        const int before = Lines(text);
        text.SetValue(section, QStringLiteral("K"), value);
        const QString line = QStringLiteral("k=") + value;
        Expect(text.Value(section, QStringLiteral("k")) ==
               netrove::IniLine::Parse(line).value.toString());
        const int added = Lines(text) - before;
        Expect(hadSection ? added == 0 : added == 1 || added == 2);
        text.SetValue(section, QStringLiteral("other"), value);
        text.RemoveKey(section, QStringLiteral("k"));
        Expect(!text.Value(section, QStringLiteral("k")));
        Expect(text.Value(section, QStringLiteral("OTHER")).has_value());
        text.RemoveSection(section);
        Expect(!text.Value(section, QStringLiteral("other")));
    }
    Expect(IniText(text.ToBytes()).ToBytes() == text.ToBytes() ||
           text.ToBytes().startsWith("\xEF\xBB\xBF"));
    return 0;
}
