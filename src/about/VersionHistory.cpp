#include "about/VersionHistory.h"

#include "about/frmAbout.h"
#include "runtime/ProgramVersion.h"
#include "runtime/SourceText.h"

#include <QLocale>

namespace netrove {

QString VersionHistory() {
    QStringList lines;
    const QLocale locale(frmAbout::tr("en", "language of the date"));
    lines << u"v%1 (%2)"_s.arg(ProgramVersion(),
                               locale.toString(ReleaseDate(), frmAbout::tr("MMMM d, yyyy")))
          << frmAbout::tr("- The first release for Linux.")
          << frmAbout::tr("- Searches every computer of the network by SMB, over several "
                          "connections at once, and finds the computers by itself.")
          << frmAbout::tr("- Copies what was found, with a queue.")
          << frmAbout::tr("- Saves lists of results and loads them again, also those of older "
                          "installations.")
          << frmAbout::tr("- Logs on with stored logons or a Kerberos ticket.")
          << frmAbout::tr("- netrove-find is the same search on the console.");
    return lines.join(u'\n');
}

} // namespace netrove
