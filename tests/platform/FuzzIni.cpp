#include "platform/IniReader.h"

#include <cstdint>
#include <cstdlib>

/// Whatever the bytes are, every entry that was read is one that a look-up can find, on a line
/// that the text has.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const netrove::IniReader ini(bytes, QStringLiteral("fuzz.ini"));
    const int lines = static_cast<int>(QByteArray(bytes.data(), bytes.size()).count('\n')) + 1;
    int lastLine = 0;
    for (const netrove::IniSection& section : ini.Sections()) {
        if (section.line <= lastLine || ini.Find(section.name) == nullptr)
            std::abort();
        lastLine = section.line;
        for (const netrove::IniEntry& entry : section.entries) {
            if (entry.line <= lastLine || section.Find(entry.key) == nullptr)
                std::abort();
            lastLine = entry.line;
        }
    }
    if (lastLine > lines)
        std::abort();
    return 0;
}
