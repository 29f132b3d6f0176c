#include "fakes/Fuzz.h"
#include "platform/IniReader.h"

/// Whatever the bytes are, every entry that was read is one that a look-up can find, on a line
/// that the text has.
void netrove::Fuzz(const QByteArray& bytes) {
    const IniReader ini(bytes, QStringLiteral("fuzz.ini"));
    int lastLine = 0;
    for (const IniSection& section : ini.Sections()) {
        Require(section.line > lastLine && ini.Find(section.name) != nullptr);
        lastLine = section.line;
        for (const IniEntry& entry : section.entries) {
            Require(entry.line > lastLine && section.Find(entry.key) != nullptr);
            lastLine = entry.line;
        }
    }
    Require(lastLine <= bytes.count('\n') + 1);
}
