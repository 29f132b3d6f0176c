#include "mainwindow/about/VersionHistory.h"

#include <QStringList>

namespace netrove {

QString VersionHistory() {
    QStringList lines;
    lines << QStringLiteral("v0.99.5 (November 25, 2026)")
          << QStringLiteral("- The first release for Linux.")
          << QStringLiteral("- Searches every computer of the network by SMB, over several "
                            "connections at once, and finds the computers by itself.")
          << QStringLiteral("- Copies what was found, with a queue.")
          << QStringLiteral("- Saves lists of results and loads them again, also those of older "
                            "installations.")
          << QStringLiteral("- Logs on with stored logons or a Kerberos ticket.")
          << QStringLiteral("- netrove-find is the same search on the console.");
    return lines.join(u'\n');
}

} // namespace netrove
