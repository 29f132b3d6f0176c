#include "discovery/ComputerName.h"
#include "discovery/DnsSdText.h"
#include "fakes/Fuzz.h"

/// Whatever a service calls itself, what comes of it can stand in a path and on a screen.
void netrove::Fuzz(const QByteArray& bytes) {
    const QList<QByteArray> parts = bytes.split('\n');
    const QString name =
        DnsSdText::ComputerName(QString::fromUtf8(parts.first()), QString::fromUtf8(parts.last()));
    for (const QString& text : {name, DnsSdText::Model(parts)})
        Require(text.isEmpty() || IsComputerName(text));
}
