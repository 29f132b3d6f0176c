#include "fakes/Fuzz.h"
#include "platform/IniLine.h"
#include "platform/IniText.h"

/// Whatever the text is, what is written can be read, what is removed is gone, all else stays; and
/// a text that was written reads as the same text.
void netrove::Fuzz(const QByteArray& bytes) {
    IniText text(bytes);
    const auto requireSame = [&text] {
        const QByteArray written = text.ToBytes();
        Require(IniText(written).ToBytes() == written || written.startsWith("\xEF\xBB\xBF"));
    };
    const auto lines = [&text] { return text.ToBytes().count('\n'); };
    requireSame();

    // The first line is a value, and names that it may hold are looked for.
    const QString value =
        QString::fromUtf8(bytes).section(QLatin1Char('\n'), 0, 0).remove(QLatin1Char('\r'));
    const QString key = QStringLiteral("k");
    const QString other = QStringLiteral("other");
    for (const QString& section : {QStringLiteral("a"), QStringLiteral("New")}) {
        const bool hadSection = text.Value(section, key).has_value();
        const auto before = lines();
        text.SetValue(section, key.toUpper(), value);
        const QString line = QStringLiteral("k=") + value;
        Require(text.Value(section, key) == IniLine::Parse(line).value.toString());
        const auto added = lines() - before;
        Require(hadSection ? added == 0 : added == 1 || added == 2);
        text.SetValue(section, other, value);
        text.RemoveKey(section, key);
        Require(!text.Value(section, key) && text.Value(section, other.toUpper()));
        text.RemoveSection(section);
        Require(!text.Value(section, other));
    }
    requireSame();
}
