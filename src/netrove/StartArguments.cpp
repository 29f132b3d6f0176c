#include "netrove/StartArguments.h"

#include "runtime/ProgramVersion.h"
#include "runtime/SourceText.h"

#include <QFileInfo>

namespace netrove {
namespace {

QString HelpText() {
    return StartArguments::tr(R"(Usage: netrove [FILE]...
Find files on the local network. Results files (.nrr) that are given are loaded
into the list of results.

  --help     print this help
  --version  print the version

All else is set in the window; its help comes with F1. netrove-find searches
without a window.
)");
}

} // namespace

StartArguments::StartArguments(const QStringList& arguments) {
    bool areOptions = true;
    for (const QString& argument : arguments) {
        if (!areOptions || !argument.startsWith(u'-'))
            files_.append(QFileInfo(argument).absoluteFilePath());
        else if (argument == u"--")
            areOptions = false;
        else
            ReadOption(argument);
    }
}

void StartArguments::ReadOption(const QString& option) {
    if (option == u"--help")
        text_ = HelpText();
    else if (option == u"--version")
        text_ = "netrove "_L1 + ProgramVersion() + u'\n';
    else
        problem_ =
            u"netrove: " + tr("there is no option '%1'; see 'netrove --help'.").arg(option) + u'\n';
}

} // namespace netrove
