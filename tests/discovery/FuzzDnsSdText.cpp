#include "discovery/ComputerName.h"
#include "discovery/DnsSdText.h"

#include <cstdint>
#include <cstdlib>

/// Whatever a service calls itself, what comes of it can stand in a path and on a screen.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QList<QByteArray> parts = bytes.split('\n');
    const QString name = netrove::DnsSdText::ComputerName(QString::fromUtf8(parts.first()),
                                                          QString::fromUtf8(parts.last()));
    const QString model = netrove::DnsSdText::Model(parts);
    for (const QString& text : {name, model}) {
        if (!text.isEmpty() && !netrove::IsComputerName(text))
            std::abort();
    }
    return 0;
}
