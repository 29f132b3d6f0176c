#include "find/HelpText.h"

#include "runtime/SourceText.h"

#include <QCoreApplication>
#include <QStringList>

namespace netrove {
namespace {

QString Usage() {
    return QCoreApplication::translate("HelpText", R"(Usage: netrove-find [OPTION]... PATTERN...
Find files on the local network whose names match a PATTERN.

PATTERNs are separated by blanks or commas and match whole names, without regard
to case. Quote them, so that the shell leaves them alone:
  *  any characters       [a-f]   one character of a list
  ?  one character        [!a-f]  one character not in it
  #  one digit
No asterisks are added: 'report' finds only files called "report", '*report*'
all that have it in their names.)");
}

QString Where() {
    return QCoreApplication::translate("HelpText", R"(Where to search:
  --from NODE            start at NODE instead of the whole network. NODE is
                           '\\SERVER', '\\SERVER\SHARE' or a folder below
                           (also as //SERVER/SHARE), the name of a network,
                           or names from the network down, joined by '|':
                           'Microsoft Windows Network|WORKGROUP'
  --no-recurse           leave the folders of shares alone
  --exclude NAME[:TYPE]  leave out what is called NAME; TYPE is folder (also a
                           share; the default), workstation, workgroup or
                           network. May be given more than once
  --admin-shares         try the hidden shares Admin$ and C$ to Z$ too
  --this-computer        search this computer too
  --logon-file FILE      log on to every computer with the user of FILE, which
                           only you may read and has the lines
                           "username = USER", "password = PASSWORD" and, if
                           need be, "domain = DOMAIN"; else as a guest)");
}

QString What() {
    return QCoreApplication::translate("HelpText", R"(What to print:
  --details              print name, folder, size in bytes, date (as 2020-02-03
                           04:05:06), attributes (R, H, S, A), and for MPEG
                           audio length, bit rate in kbit/s and frequency in
                           Hz; separated by tabs
  --max N                stop after N files
  --log FILE             write what the search looks at to FILE

  -h, --help             print this help
  --version              print the version)");
}

QString Notes() {
    return QCoreApplication::translate(
        "HelpText",
        R"(One file a line, with its full path, as soon as it is found. A line break in a
name is printed as its code in angle brackets, <0A>, which no name can hold;
with --details a tab too, and on a terminal every control character.

While the search runs, a terminal shows how far it is. Ctrl+C stops it and
prints what was found so far; a second Ctrl+C ends the program at once. Which
computers and shares couldn't be searched is printed to standard error.

Exit status: 0 if a file was found, 1 if none was, 2 for wrong use or a failure,
128 and the signal's number if a signal stopped the search.)");
}

QString Examples() {
    return QCoreApplication::translate("HelpText", "Examples:") + uR"(
  netrove-find '*.mp3'
  netrove-find --from //MEDIA/MUSIC --details '*.mp3,*.mp2'
  netrove-find --exclude Temp --exclude OLDPC:workstation 'report*'
)"_s;
}

} // namespace

QString HelpText() {
    return QStringList{Usage(), Where(), What(), Notes(), Examples()}.join("\n\n"_L1);
}

} // namespace netrove
