#include "silent/NobodyText.h"

#include "runtime/SourceText.h"
#include "silent/frmSilent.h"

namespace netrove {
namespace {

QString Listed(const QString& heading, const QStringList& lines) {
    QString text = heading;
    for (const QString& line : lines)
        text += u"\n\u2022 "_s + line;
    return text;
}

} // namespace

QString NobodyText(const NetworkReport& report, const QString& networkFile) {
    const QStringList help{
        frmSilent::tr("Are other computers on, and in the same network as this one? Networks for "
                      "guests often keep computers apart."),
        frmSilent::tr("A computer that doesn't announce itself can be named in %1, as in the line "
                      "Computer1=ATTIC. Netrove reads that file at its start.")
            .arg(networkFile),
        frmSilent::tr("A firewall on this computer must let in what comes from the UDP ports 3702 "
                      "and 137."),
        frmSilent::tr("The button <> of the main window takes the name of a computer. Its \"Set to "
                      "Network Root\" has the network read anew by the next search."),
    };
    return Listed(frmSilent::tr("This was asked:"), report.Sources()) + u"\n\n"_s +
           Listed(frmSilent::tr("This may help:"), help);
}

} // namespace netrove
